#include "ImageNames.h"

#include "common/Cp1252.h"

#include <algorithm>

namespace imagenames {

void maskLineBreakers(std::string &text, size_t from)
{
    std::replace_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), breaksLine, '?');
}

void appendVolumeName(std::string_view utf8, std::string &out)
{
    const size_t start = out.size();
    cp1252::appendFromUtf8(utf8, out);
    std::replace_if(out.begin() + static_cast<std::ptrdiff_t>(start), out.end(),
        [](char c) { return c == '\\' || breaksLine(c); }, '?');
}

} // namespace imagenames
