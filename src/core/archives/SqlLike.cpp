#include "SqlLike.h"

#include "common/Cp1252.h"

#include <sqlite3.h>

#include <memory>
#include <string_view>

namespace {

std::string_view bytesOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return { text, static_cast<size_t>(sqlite3_value_bytes(value)) };
}

void deletePattern(void *pattern)
{
    delete static_cast<LikePattern *>(pattern);
}

// like(pattern, text), the function behind "text LIKE pattern".
void likeFunction(sqlite3_context *context, int, sqlite3_value **arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    // The pattern is the same for every row of a statement: compile it once and keep it
    // with the statement. The engine may drop it at once, so it is handed over last.
    const auto *kept = static_cast<const LikePattern *>(sqlite3_get_auxdata(context, 0));
    std::unique_ptr<LikePattern> compiled;
    if (!kept)
        compiled = std::make_unique<LikePattern>(
            cp1252::fromUtf8(bytesOf(arguments[0])), LikePattern::Case::Folded);
    const LikePattern &pattern = kept ? *kept : *compiled;
    if (!pattern.isValid()) {
        *static_cast<LikePattern::Error *>(sqlite3_user_data(context)) = pattern.error();
        sqlite3_result_error(context, likeErrorMessage(pattern.error()).toUtf8().constData(), -1);
        return;
    }
    sqlite3_result_int(context, pattern.matches(cp1252::fromUtf8(bytesOf(arguments[1]))) ? 1 : 0);
    if (compiled)
        sqlite3_set_auxdata(context, 0, compiled.release(), &deletePattern);
}

} // namespace

void registerSqlLike(sqlite3 *db, LikePattern::Error *patternError)
{
    sqlite3_create_function_v2(db, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, patternError, &likeFunction,
        nullptr, nullptr, nullptr);
}
