#pragma once

#include "common/LikePattern.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

// Which plain files a capture writes. The typed filter is cut first: a leading "*" drops
// everything up to its first "." ("*.txt" -> "txt", "*.*" -> "*"), so the rest matches
// anywhere in a name and the extension gets no special place. A file passes when the cut
// filter is exactly "*", or when its upper-cased name is like "*" + upper-cased filter + "*".
class CaptureFilter
{
public:
    // `typed` in code page 1252 bytes.
    explicit CaptureFilter(std::string_view typed);

    // Empty, or the German message for a pattern that cannot be matched.
    QString errorMessage() const;

    // `name` in code page 1252 bytes; the empty name of an unlistable folder is tested too.
    bool passes(std::string_view name) const;

    // The filter after the cut, as the walk uses it.
    const std::string &cut() const { return m_cut; }

    static std::string cutFilter(std::string_view typed);

private:
    std::string m_cut;
    bool m_all = false;
    std::optional<LikePattern> m_pattern;
    mutable std::string m_upperName; // scratch, so that a test allocates nothing per file
};
