#pragma once

#include "PainterPrinter.h"
#include "common/Temporaries.h"

#include <QPdfWriter>

// Prints into a PDF file on A4. The file is written under a temporary name and takes the
// place of an existing one only when the document is finished and on disk: a cancelled or
// failed job, a full disk among them, leaves the old file as it was.
class PdfPrinter : public PainterPrinter
{
public:
    explicit PdfPrinter(const QString &path);
    ~PdfPrinter() override;

protected:
    int resolution() const override { return m_writer.resolution(); }
    bool deliver() override;
    void applyQuality(int quality) override;

private:
    temporaries::AtomicFile m_file;
    QPdfWriter m_writer;
};
