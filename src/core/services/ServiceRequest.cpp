#include "ServiceRequest.h"

#include "common/Cp1252.h"

#include <pwd.h>
#include <unistd.h>

namespace service {

namespace {

// The version text the replies are measured against. It stays "5.0" in version 5.1, so a
// reply "5.1" still counts as news.
constexpr char kComparedVersion[] = "5.0";

} // namespace

QString baseAddress()
{
    const QString chosen = qEnvironmentVariable("SILBERBUCH_SERVICE_URL");
    if (!chosen.isEmpty())
        return chosen;
    // The server scripts live on the web site; the requests append their own "/members/...".
    QString site = vendorWebAddress();
    while (site.endsWith(QLatin1Char('/')))
        site.chop(1);
    return site;
}

QString vendorWebAddress()
{
    return QStringLiteral(SILBERBUCH_HOMEPAGE);
}

QString vendorWebAddressText()
{
    QString text = vendorWebAddress();
    text.remove(0, text.indexOf(QStringLiteral("://")) + 3);
    while (text.endsWith(QLatin1Char('/')))
        text.chop(1);
    return text;
}

QString vendorMailAddress()
{
    return QStringLiteral(SILBERBUCH_MAIL);
}

QString userName()
{
    const passwd *entry = ::getpwuid(::getuid());
    return entry && entry->pw_name ? QString::fromLocal8Bit(entry->pw_name) : QString();
}

QByteArray encodeValue(const QString &value)
{
    static const char hex[] = "0123456789ABCDEF";
    QByteArray out;
    for (const char c : cp1252::fromQString(value)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte <= 0x20 || byte >= 0x7F || byte == '#' || byte == '%') {
            out += '%';
            out += hex[byte >> 4];
            out += hex[byte & 0x0F];
        } else {
            out += c;
        }
    }
    return out;
}

QByteArray updateAddress(const QString &base, const QString &startCount, const QString &user)
{
    return base.toUtf8() + "/members/Tolvan/updates.pl?value1=" + encodeValue(startCount + QLatin1Char('|') + user);
}

QByteArray wishAddress(
    const QString &base, const QString &startCount, const QString &mail, const QString &wish, const QString &user)
{
    QString text = wish;
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    const QChar bar = QLatin1Char('|');
    return base.toUtf8() + "/members/Tolvan/wunsch.pl?value1="
        + encodeValue(startCount + bar + mail + bar + text + bar + user);
}

bool isNewerVersion(const QByteArray &reply)
{
    return reply > QByteArray(kComparedVersion);
}

bool isThanks(const QByteArray &reply)
{
    return reply == "Danke";
}

} // namespace service
