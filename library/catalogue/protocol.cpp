#include "library/catalogue/protocol.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <utility>

namespace vk {

namespace {

constexpr std::array<const char*, 3> RequestNames = {"scan", "stop", "quit"};
constexpr std::array<const char*, 4> EventNames = {"StatusChanged", "ShowProgress", "UnhookDB",
                                                   "DBError"};

QByteArray Bytes(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string TextOf(const QJsonObject& object, const char* name) {
    return object[QLatin1String(name)].toString().toStdString();
}

QString Encoded(std::string_view bytes) {
    return QString::fromLatin1(Bytes(bytes).toPercentEncoding("/"));
}

std::string Decoded(const QJsonObject& object, const char* name) {
    const QString text = object[QLatin1String(name)].toString();
    return QByteArray::fromPercentEncoding(text.toLatin1()).toStdString();
}

std::string Line(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

/// The index of the object's name among `names`; nothing when there is none.
template<std::size_t Count>
std::optional<int> Named(const QJsonObject& object, const char* key,
                         const std::array<const char*, Count>& names) {
    const QString name = object[QLatin1String(key)].toString();
    for (std::size_t i = 0; i < Count; ++i)
        if (name == QLatin1String(names[i])) return static_cast<int>(i);
    return std::nullopt;
}

QJsonObject Parsed(std::string_view line) {
    return QJsonDocument::fromJson(Bytes(line)).object();
}

ScanRequest ScanOf(const QJsonObject& object) {
    ScanRequest scan;
    scan.full = object[u"full"].toBool(true);
    scan.appDir = Decoded(object, "appDir");
    scan.mediaDir = Decoded(object, "mediaDir");
    scan.audioExtensions = TextOf(object, "audioExtensions");
    scan.videoExtensions = TextOf(object, "videoExtensions");
    scan.decimalSymbol = TextOf(object, "decimalSymbol");
    return scan;
}

DBStateValue StateOf(const QJsonObject& object) {
    const int number = object[u"state"].toInt();
    const bool known = number >= static_cast<int>(DBStateValue::Disabled) &&
                       number <= static_cast<int>(DBStateValue::OnLine);
    return known ? static_cast<DBStateValue>(number) : DBStateValue::Offline;
}

} // namespace

std::string ToLine(const ServerRequest& request) {
    QJsonObject object{{"request", RequestNames[static_cast<std::size_t>(request.kind)]}};
    if (request.kind == ServerRequest::Kind::Scan) {
        object["full"] = request.scan.full;
        object["appDir"] = Encoded(request.scan.appDir);
        object["mediaDir"] = Encoded(request.scan.mediaDir);
        object["audioExtensions"] = Text(request.scan.audioExtensions);
        object["videoExtensions"] = Text(request.scan.videoExtensions);
        object["decimalSymbol"] = Text(request.scan.decimalSymbol);
    }
    return Line(object);
}

std::string ToLine(const ServerEvent& event) {
    QJsonObject object{{"event", EventNames[static_cast<std::size_t>(event.kind)]}};
    if (event.kind == ServerEvent::Kind::StatusChanged) {
        object["state"] = static_cast<int>(event.state);
    } else if (event.kind == ServerEvent::Kind::ShowProgress) {
        object["step"] = static_cast<int>(event.progress.step);
        object["count"] = static_cast<qint64>(event.progress.count);
        object["text"] = Text(event.progress.text);
    } else if (event.kind == ServerEvent::Kind::DBError) {
        object["number"] = event.error.number;
        object["source"] = Text(event.error.source);
        object["description"] = Text(event.error.description);
        object["silent"] = event.error.silent;
    }
    return Line(object);
}

std::optional<ServerRequest> ParseRequest(std::string_view line) {
    const QJsonObject object = Parsed(line);
    const auto kind = Named(object, "request", RequestNames);
    if (!kind) return std::nullopt;
    return ServerRequest{static_cast<ServerRequest::Kind>(*kind), ScanOf(object)};
}

std::optional<ServerEvent> ParseEvent(std::string_view line) {
    const QJsonObject object = Parsed(line);
    const auto kind = Named(object, "event", EventNames);
    if (!kind) return std::nullopt;
    ServerEvent event;
    event.kind = static_cast<ServerEvent::Kind>(*kind);
    event.state = StateOf(object);
    event.progress = {static_cast<ScanStep>(object[u"step"].toInt()), object[u"count"].toInteger(),
                      TextOf(object, "text")};
    event.error = {object[u"number"].toInt(), TextOf(object, "source"),
                   TextOf(object, "description"), object[u"silent"].toBool(true)};
    return event;
}

} // namespace vk
