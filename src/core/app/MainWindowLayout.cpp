#include "MainWindowLayout.h"

#include "NumberText.h"
#include "common/Numbers.h"

#include <cstdint>
#include <limits>
#include <optional>

namespace {

// A stored whole number within [low, high], converted the way integers are: the nearest
// one, ties to even.
std::optional<int64_t> wholeNumberIn(const QString &text, int64_t low, int64_t high)
{
    const std::optional<double> number = parseNumberText(text);
    if (!number || *number < static_cast<double>(low) - 0.5 || *number > static_cast<double>(high) + 0.5)
        return std::nullopt;
    const int64_t whole = bankersRound(*number);
    if (whole < low || whole > high)
        return std::nullopt;
    return whole;
}

QString unusableValueMessage(SettingKey key, const QString &stored, const QString &expected)
{
    return QStringLiteral("Die gespeicherte Einstellung \"") + Settings::keyName(key) + QStringLiteral("\" (")
           + stored + QStringLiteral(") ist ") + expected + QStringLiteral(". Es wird der Standardwert ")
           + Settings::declaredDefault(key) + QStringLiteral(" verwendet.");
}

// The stored whole number, or the key's default with a notice.
int64_t readWholeNumber(const Settings &settings, SettingKey key, int64_t low, int64_t high,
                        const QString &expected, QStringList &messages)
{
    const QString stored = settings.value(key);
    if (const std::optional<int64_t> value = wholeNumberIn(stored, low, high))
        return *value;
    messages << unusableValueMessage(key, stored, expected);
    return *wholeNumberIn(Settings::declaredDefault(key), low, high);
}

float readHeight(const Settings &settings, QStringList &messages)
{
    const QString stored = settings.value(SettingKey::Hoehe);
    const std::optional<double> number = parseNumberText(stored);
    if (number && *number <= std::numeric_limits<float>::max() && *number >= -std::numeric_limits<float>::max())
        return static_cast<float>(*number);
    messages << unusableValueMessage(SettingKey::Hoehe, stored, QStringLiteral("keine Zahl"));
    return static_cast<float>(*parseNumberText(Settings::declaredDefault(SettingKey::Hoehe)));
}

// The text form of a single-precision number: up to seven significant digits, no
// exponent for window sizes.
QString singleText(float value)
{
    return QString::number(value, 'g', 7);
}

} // namespace

LayoutLoad loadMainWindowLayout(Settings &settings)
{
    LayoutLoad load;
    MainWindowLayout &layout = load.layout;
    layout.widthTwips = static_cast<int>(readWholeNumber(settings, SettingKey::Breite,
                                                             std::numeric_limits<int16_t>::min(),
                                                             std::numeric_limits<int16_t>::max(),
                                                             QStringLiteral("keine ganze Zahl bis 32767"),
                                                             load.messages));
    if (layout.widthTwips < kLayoutWidthFloor) {
        settings.setValue(SettingKey::Breite, QString::number(kLayoutWidthFloor));
        layout.widthTwips = kLayoutWidthFloor;
    }
    layout.heightTwips = readHeight(settings, load.messages);
    layout.windowState = static_cast<int>(readWholeNumber(settings, SettingKey::StartupMaximized,
                                                          MainWindowLayout::Normal, MainWindowLayout::Maximized,
                                                          QStringLiteral("kein Fensterzustand (0, 1 oder 2)"),
                                                          load.messages));
    layout.tab = static_cast<int>(readWholeNumber(settings, SettingKey::TabStrip, 1, 3,
                                                  QStringLiteral("keine Registerkarte (1 bis 3)"), load.messages));
    layout.sorted = settings.value(SettingKey::Sort) == QLatin1String("1");
    return load;
}

void storeMainWindowLayout(Settings &settings, const MainWindowLayout &layout)
{
    if (layout.windowState < MainWindowLayout::Maximized) {
        settings.setValue(SettingKey::Breite, singleText(static_cast<float>(layout.widthTwips)));
        settings.setValue(SettingKey::Hoehe, singleText(layout.heightTwips));
    }
    settings.setValue(SettingKey::StartupMaximized, QString::number(layout.windowState));
    settings.setValue(SettingKey::TabStrip, QString::number(layout.tab));
    settings.setValue(SettingKey::Sort, layout.sorted ? QStringLiteral("1") : QStringLiteral("0"));
}

int twipsToPixels(double twips)
{
    return static_cast<int>(bankersRound(twips / kTwipsPerPixel));
}

int pixelsToTwips(int pixels)
{
    return pixels * kTwipsPerPixel;
}
