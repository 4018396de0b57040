#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace tavrix {

// One request from the mobile app, as a handler sees it: its event name and its data,
// with the readers every handler needs and the builders of the replies the app expects.
// Replies always carry the request's own event name, so a handler cannot answer for
// another request by mistake.
class RemoteRequest
{
public:
    RemoteRequest(QString event, QJsonObject data);

    [[nodiscard]] const QString &event() const { return m_event; }
    [[nodiscard]] const QJsonObject &data() const { return m_data; }

    [[nodiscard]] bool has(QLatin1String key) const { return m_data.contains(key); }
    // Integers read -1 when missing, fractional or not a number, so a missing field fails
    // every range check.
    [[nodiscard]] int integer(QLatin1String key) const;
    [[nodiscard]] double number(QLatin1String key, double fallback) const;
    // Empty when missing or not a string.
    [[nodiscard]] QString text(QLatin1String key) const;
    [[nodiscard]] bool flag(QLatin1String key, bool fallback = false) const;
    [[nodiscard]] QJsonObject object(QLatin1String key) const { return m_data.value(key).toObject(); }
    [[nodiscard]] QJsonArray array(QLatin1String key) const { return m_data.value(key).toArray(); }

    // {"event", "data"}: the answer to a query.
    [[nodiscard]] QJsonObject answer(const QJsonObject &data) const;
    // {"event", "success": true} plus any keys of extra (for example "data").
    [[nodiscard]] QJsonObject succeeded(const QJsonObject &extra = {}) const;
    // {"event", "success": false, "message"}: a refused action; nothing was changed.
    [[nodiscard]] QJsonObject failed(const QString &message) const;
    // {"event": "error", "source", "message"}: a request that cannot be served at all.
    [[nodiscard]] QJsonObject error(const QString &message) const;
    // succeeded() or failed(message), for actions whose outcome is a plain yes or no.
    [[nodiscard]] QJsonObject outcome(bool ok, const QString &message) const;

private:
    QString m_event;
    QJsonObject m_data;
};

} // namespace tavrix
