#include "ImageLine.h"

namespace imageline {

std::string_view folderOf(std::string_view line)
{
    const size_t slash = line.rfind('\\');
    return slash == std::string_view::npos ? std::string_view() : line.substr(0, slash);
}

std::string_view folderKey(std::string_view folderLine)
{
    return folderLine.size() > 1 ? folderLine.substr(1) : std::string_view();
}

std::string_view parentKey(std::string_view folderLine)
{
    if (folderLine.size() == 3)
        return folderKey(folderLine);
    const size_t slash = folderLine.rfind('\\');
    if (slash == std::string_view::npos || slash < 1)
        return std::string_view();
    return folderLine.substr(1, slash - 1);
}

std::string_view nodeText(std::string_view folderLine)
{
    if (folderLine.size() == 3)
        return folderKey(folderLine);
    const size_t slash = folderLine.rfind('\\');
    return slash == std::string_view::npos ? folderKey(folderLine) : folderLine.substr(slash + 1);
}

bool cutFileLine(std::string_view line, FileFields &fields)
{
    const size_t firstBar = line.find('|');
    if (firstBar == std::string_view::npos)
        return false;
    const size_t lastBar = line.rfind('|');
    fields.fullPath = line.substr(0, firstBar);
    const size_t slash = fields.fullPath.rfind('\\');
    fields.name = slash == std::string_view::npos ? fields.fullPath : fields.fullPath.substr(slash + 1);
    fields.size = lastBar > firstBar ? line.substr(firstBar + 1, lastBar - firstBar - 1) : std::string_view();
    fields.date = line.substr(lastBar + 1);
    return true;
}

std::string_view fileType(std::string_view fullPath)
{
    const size_t dot = fullPath.rfind('.');
    return dot == std::string_view::npos ? std::string_view("dat") : fullPath.substr(dot + 1);
}

} // namespace imageline
