#pragma once

#include <QString>

#include <optional>

// Truth values kept as text in the settings. Read: "True"/"False" and "Wahr"/"Falsch" in
// any case, or a number (0 is false, any other number true), blanks around allowed.
// Anything else is no truth value.
std::optional<bool> parseTruthValue(const QString &text);
