#pragma once

#include <QString>

class Settings;

// The file a print into PDF proposes: named after what is printed ("Suchergebnis" where
// nothing names it), in the folder printed into last.
QString proposedPdfFile(const Settings &settings, const QString &printedName);
// Keeps the folder of a PDF file printed into for the next proposal.
void rememberPdfFolder(Settings &settings, const QString &pdfFile);
