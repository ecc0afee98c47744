#include "ArchiveListing.h"

#include "DosDate.h"
#include "common/Cp1252.h"

#include <archive.h>
#include <archive_entry.h>

#include <ctime>
#include <locale.h>

namespace {

// The library converts RAR names into the charset of the calling thread's locale. Under a
// UTF-8 locale every name arrives; under the C locale the Unicode names of RAR 4 are lost.
// So the listing runs under a UTF-8 character type on this thread only, and the thread's
// locale is given back afterwards.
class Utf8ThreadLocale
{
public:
    Utf8ThreadLocale()
        : m_utf8(newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr)))
    {
        if (m_utf8 != static_cast<locale_t>(nullptr))
            m_previous = uselocale(m_utf8);
    }
    ~Utf8ThreadLocale()
    {
        if (m_utf8 == static_cast<locale_t>(nullptr))
            return;
        uselocale(m_previous);
        freelocale(m_utf8);
    }
    Utf8ThreadLocale(const Utf8ThreadLocale &) = delete;
    Utf8ThreadLocale &operator=(const Utf8ThreadLocale &) = delete;

private:
    locale_t m_utf8;
    locale_t m_previous = static_cast<locale_t>(nullptr);
};

class RarReader
{
public:
    explicit RarReader(const std::string &path)
        : m_archive(archive_read_new())
    {
        // Only the RAR readers: with every format enabled a RAR whose first member is a ZIP
        // would be taken for that ZIP.
        archive_read_support_format_rar(m_archive);
        archive_read_support_format_rar5(m_archive);
        m_open = archive_read_open_filename(m_archive, path.c_str(), 64 * 1024) == ARCHIVE_OK;
    }
    ~RarReader() { archive_read_free(m_archive); }
    RarReader(const RarReader &) = delete;
    RarReader &operator=(const RarReader &) = delete;

    // The next header, or null at the end, at damage and at encrypted headers.
    archive_entry *next()
    {
        if (!m_open)
            return nullptr;
        archive_entry *entry = nullptr;
        const int result = archive_read_next_header(m_archive, &entry);
        if (result != ARCHIVE_OK && result != ARCHIVE_WARN)
            return nullptr;
        return entry;
    }
    // Steps over the entry's data without unpacking it where the format allows; false when
    // the archive breaks off inside it.
    bool skipData() { return archive_read_data_skip(m_archive) == ARCHIVE_OK; }

private:
    archive *m_archive;
    bool m_open = false;
};

// Files are told from folders by the name alone: the part behind the first separator must
// hold a dot, so "bilder" and "bilder/liesmich" stay out and "bilder/a.jpg" is kept.
bool isListed(std::string_view name)
{
    const size_t separator = name.find_first_of("\\/");
    const std::string_view rest = separator == std::string_view::npos ? name : name.substr(separator + 1);
    return rest.find('.') != std::string_view::npos;
}

// RAR 4 keeps a zone-less DOS time, which the library turns into a time stamp with the local
// zone; the local calendar day gives that date back unchanged.
std::string entryDate(archive_entry *entry)
{
    if (!archive_entry_mtime_is_set(entry))
        return {};
    const time_t when = archive_entry_mtime(entry);
    tm local {};
    if (localtime_r(&when, &local) == nullptr)
        return {};
    return dosDateText(dosDateWord(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday));
}

std::string entrySize(archive_entry *entry)
{
    const int64_t size = archive_entry_size_is_set(entry) ? archive_entry_size(entry) : 0;
    return std::to_string(static_cast<int32_t>(static_cast<uint32_t>(size)));
}

} // namespace

ArchiveListing listRar(const std::string &path)
{
    ArchiveListing listing;
    const Utf8ThreadLocale utf8;
    RarReader reader(path);
    while (archive_entry *entry = reader.next()) {
        const char *utf8Name = archive_entry_pathname_utf8(entry);
        if (utf8Name != nullptr) {
            std::string name = cp1252::fromUtf8(utf8Name);
            if (isListed(name)) {
                for (char &c : name) {
                    if (c == '\\')
                        c = '/';
                }
                listing.rows.push_back(ArchiveEntry { std::move(name), entrySize(entry), entryDate(entry) });
            }
        }
        if (!reader.skipData())
            break;
    }
    return listing;
}
