#pragma once

#include <QByteArray>

#include <chrono>

// One HTTP GET as the online services make it: a direct connection (no proxy), never answered
// from a cache, the agent "Wininet Test", the address's bytes as built in the request line,
// and one read of at most 50000 bytes of the whole answer, headers included; the body of what
// was read is the reply (an error page's too).
// Events go on being handled while it waits, so the window that asked stays alive. Whatever
// fails (no network, no server, the time limit) gives an empty reply, as a failed read did.
namespace service {

constexpr qsizetype kReplyLimit = 50000;

QByteArray httpGetOnce(const QByteArray &address, std::chrono::milliseconds timeLimit = std::chrono::seconds(15));

} // namespace service
