#pragma once

#include "print/PainterPrinter.h"

#include <QPrinter>
#include <QStringList>

#include <memory>

// Prints to one of the system's printers, on A4, as one job.
class SystemPrinter : public PainterPrinter
{
public:
    // The device names of the installed printers.
    static QStringList deviceNames();
    // The printer of that device name; null when there is none.
    static std::unique_ptr<SystemPrinter> named(const QString &deviceName);

    ~SystemPrinter() override;

protected:
    int resolution() const override { return m_printer.resolution(); }
    bool deliver() override { return true; }
    void applyQuality(int quality) override;

private:
    explicit SystemPrinter(const QPrinterInfo &info);

    QPrinter m_printer;
};
