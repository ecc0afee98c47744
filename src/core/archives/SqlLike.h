#pragma once

#include "common/LikePattern.h"

struct sqlite3;

// Replaces the engine's like() by the catalogue's pattern rule, case folded: "*", "?", "#"
// and "[...]", so that query texts with LIKE run as they are written. A pattern that does
// not compile fails the statement and leaves its error in *patternError, which must
// outlive the connection.
void registerSqlLike(sqlite3 *db, LikePattern::Error *patternError);
