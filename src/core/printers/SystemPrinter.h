#pragma once

#include "print/PainterPrinter.h"

#include <QPrinter>
#include <QStringList>

#include <memory>

// Prints to one of the system's printers, on A4, as one job; or paints on a printer set up
// elsewhere, such as a preview's.
class SystemPrinter : public PainterPrinter
{
public:
    // The device names of the installed printers, and the one the system prints to by default.
    static QStringList deviceNames();
    static QString defaultDeviceName();
    // The printer of that device name; null when there is none.
    static std::unique_ptr<SystemPrinter> named(const QString &deviceName);

    explicit SystemPrinter(QPrinter &printer);
    ~SystemPrinter() override;

protected:
    int resolution() const override { return m_printer.resolution(); }
    bool deliver() override { return true; }
    void applyQuality(int quality) override;

private:
    explicit SystemPrinter(std::unique_ptr<QPrinter> owned);

    std::unique_ptr<QPrinter> m_owned;
    QPrinter &m_printer;
};
