#include "services/HttpGet.h"
#include "services/ServiceRequest.h"

#include "FakeHttpServer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// The request goes out byte for byte as built: "|" and "&" as typed, blanks, umlauts, "#" and
// "%" as their code page 1252 bytes in percent form; the agent is the old client's.
TEST(ServiceRequest, RequestLinesGoOutAsBuilt)
{
    FakeHttpServer server;
    server.answer("5.0");
    const QString base = server.baseAddress();
    const std::tuple<const char *, QByteArray, QByteArray> cases[] = { // what, address, request line
        { "update check", service::updateAddress(base, u"3"_s, u"anna"_s),
            "GET /members/Tolvan/updates.pl?value1=3|anna HTTP/1.0" },
        { "update check without a user", service::updateAddress(base, u"12"_s, QString()),
            "GET /members/Tolvan/updates.pl?value1=12| HTTP/1.0" },
        { "wish: lines joined, umlauts, # and % encoded, | and & as typed",
            service::wishAddress(base, u"7"_s, u"a@b.de"_s, u"Grüße #1 & 50%\r\nzweite|Zeile"_s, u"anna"_s),
            "GET /members/Tolvan/wunsch.pl?value1=7|a@b.de|Gr%FC%DFe%20%231%20&%2050%25%20zweite|Zeile|anna HTTP/1.0" },
        { "empty wish", service::wishAddress(base, u"3"_s, QString(), QString(), QString()),
            "GET /members/Tolvan/wunsch.pl?value1=3||| HTTP/1.0" },
    };
    for (const auto &[what, address, requestLine] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(service::httpGetOnce(address), QByteArray("5.0"));
        EXPECT_EQ(server.requestLine().toStdString(), requestLine.toStdString());
        EXPECT_EQ(server.agent(), QByteArray("Wininet Test"));
    }
}

// What the server answers, and what the two dialogs make of it.
TEST(ServiceRequest, RepliesAreReadOnceAndComparedAsText)
{
    FakeHttpServer server;
    const QByteArray address = service::updateAddress(server.baseAddress(), u"3"_s, u"anna"_s);
    const QByteArray errorPage = "<html><body>Not Found</body></html>";
    // What, body, status, the reply read, newer version, thanks.
    const std::tuple<const char *, QByteArray, int, QByteArray, bool, bool> cases[] = {
        { "empty", "", 200, "", false, false },
        { "same version", "5.0", 200, "5.0", false, false },
        { "a point release", "5.0.1", 200, "5.0.1", true, false },
        { "this version", "5.1", 200, "5.1", true, false },
        { "text, not numbers", "10.0", 200, "10.0", false, false },
        { "an error page is a reply", errorPage, 404, errorPage, true, false },
        { "cut where the whole answer, headers included, reaches 50000 bytes", QByteArray(60000, '9'), 200,
            QByteArray(50000 - FakeHttpServer::head(200, 60000).size(), '9'), true, false },
        { "thanks", "Danke", 200, "Danke", true, true },
        { "thanks with a line end", "Danke\r\n", 200, "Danke\r\n", true, false },
    };
    for (const auto &[what, body, status, expected, newer, thanks] : cases) {
        SCOPED_TRACE(what);
        server.answer(body, status);
        const QByteArray reply = service::httpGetOnce(address);
        EXPECT_EQ(std::tuple(reply, service::isNewerVersion(reply), service::isThanks(reply)),
            std::tuple(expected, newer, thanks));
    }
    server.stayQuiet();
    EXPECT_EQ(service::httpGetOnce(address, 300ms), QByteArray());
    EXPECT_EQ(service::httpGetOnce("http://127.0.0.1:1/members/Tolvan/updates.pl?value1=3|"), QByteArray());
}

// A header that never ends is read up to the limit and no further: the request ends there, long
// before its time limit, with no reply.
TEST(ServiceRequest, EndlessHeaderIsCutAtTheLimit)
{
    FakeHttpServer server;
    server.sendEndlessHeader();
    QElapsedTimer clock;
    clock.start();
    const QByteArray reply = service::httpGetOnce(service::updateAddress(server.baseAddress(), u"3"_s, u"anna"_s), 8s);
    const auto took = std::chrono::milliseconds(clock.elapsed());
    // The server learns of the closed connection by its own events.
    const QDeadlineTimer wait(2s);
    while (!server.endlessHeaderClosed() && !wait.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_EQ(std::tuple(reply, took < 4s, server.endlessHeaderClosed()), std::tuple(QByteArray(), true, true));
}

} // namespace
