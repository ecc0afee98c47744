#pragma once

#include <QByteArray>
#include <QString>

// The two requests to the maker's server (update check and feature wish) and the reading of
// their replies. Values travel in the query in code page 1252, as typed; only what cannot
// stand in a request line is percent-encoded.
namespace service {

// The server's address: the program's constant, or $SILBERBUCH_SERVICE_URL when set.
QString baseAddress();
// The maker's web site, offered for downloads and shown in the About window.
QString vendorWebAddress();
// The site without its scheme and closing "/", as the About window shows it.
QString vendorWebAddressText();
// Where the maker takes mail.
QString vendorMailAddress();

// The user's name sent along: the login name, empty when there is none.
QString userName();

// Blanks, control characters, bytes above 127, "#" and "%" as "%XX" of their code page 1252
// byte; everything else, "|" and "&" included, as it is.
QByteArray encodeValue(const QString &value);

// The address of the update check: value "<start>|<user>".
QByteArray updateAddress(const QString &base, const QString &startCount, const QString &user);
// The address of a wish: value "<start>|<mail>|<wish, CR LF as one blank>|<user>".
QByteArray wishAddress(
    const QString &base, const QString &startCount, const QString &mail, const QString &wish, const QString &user);

// The reply is newer when it is greater than the fixed text "5.0", compared character code by
// character code (so "5.0.1" and "5.1" are, "10.0" and "" are not).
bool isNewerVersion(const QByteArray &reply);
// The server thanks for a wish with exactly "Danke", case and all, nothing behind it.
bool isThanks(const QByteArray &reply);

} // namespace service
