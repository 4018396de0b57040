#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QPair>

#include <optional>

// The small piece of HTTP/1.1 the motion web panel speaks: a request head as a phone's browser
// sends it, and a complete reply. Pure code, no sockets, so every byte a stranger can send is
// tested and fuzzed here.
namespace tavrix::http {

// A request head longer than this is refused unread: the page never sends more than a short
// request line and a few headers.
inline constexpr qsizetype kMaxRequestBytes = 8 * 1024;

// Where the head ends: the index just past "\r\n\r\n", or -1 while it is incomplete.
[[nodiscard]] qsizetype headLength(QByteArrayView buffer);

struct Request
{
    QByteArray method;
    QByteArray target;
    // The target up to "?", and the "name=value" pairs after it, as sent.
    QByteArray path;
    QList<QPair<QByteArray, QByteArray>> query;
    // Empty when the header is absent.
    QByteArray host;
    QByteArray origin;
    bool hasOrigin = false;

    [[nodiscard]] bool hasParameter(QByteArrayView name) const;
    // The first value of `name` as a decimal integer; nothing when it is absent, is not
    // digits with an optional minus sign, or does not fit an int.
    [[nodiscard]] std::optional<int> integer(QByteArrayView name) const;
    // The Origin header names this same host and port (a page the panel served itself).
    [[nodiscard]] bool isSameOrigin() const;
    // The Host header names the server by an IP address or "localhost" (or is absent), as the
    // panel's own URL does. A name would let another site rebind it to this machine and pass
    // as the panel's own page.
    [[nodiscard]] bool isHostAnAddress() const;
};

// The request in a complete head (up to and including "\r\n\r\n"); nothing when the request
// line has fewer than two words.
[[nodiscard]] std::optional<Request> parseRequest(QByteArrayView head);

// Statuses the panel answers with.
enum Status
{
    kOk = 200,
    kBadRequest = 400,
    kForbidden = 403,
    kNotFound = 404,
    kConflict = 409,
    kRequestTooLarge = 431,
};

struct Reply
{
    int status = kOk;
    QByteArray contentType = QByteArrayLiteral("text/plain");
    QByteArray body;

    static Reply text(int status, const QString &body);
    static Reply json(const QByteArray &body);
    // The reply as it goes on the wire; the connection is closed after it.
    [[nodiscard]] QByteArray toBytes() const;
};

} // namespace tavrix::http
