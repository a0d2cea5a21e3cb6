#include "TarnwickDirect/Search/GnomeSearch.h"

#include "TarnwickDirect/Search/ListSearch.h"
#include "TarnwickDirect/Status/BusNames.h"

#include <QDBusMetaType>
#include <QHash>

#include <algorithm>
#include <array>
#include <utility>

namespace TarnwickDirect {

using PullRequestKit::PullRequestRow;

namespace {

constexpr const char* interface = "org.gnome.Shell.SearchProvider2";

constexpr QLatin1String initialResults("GetInitialResultSet");
constexpr QLatin1String laterResults("GetSubsearchResultSet");
constexpr QLatin1String describing("GetResultMetas");
constexpr QLatin1String activation("ActivateResult");

struct Method {
    QLatin1String name;
    const char* signature = nullptr;
};

constexpr std::array<Method, 5> methods{
    {{initialResults, "as"},
     {laterResults, "asas"},
     {describing, "as"},
     {activation, "sasu"},
     {QLatin1String("LaunchSearch"), "asu"}}};

QString keyOf(const PullRequestRow& row)
{
    return QString::fromStdString(row.id().storageKey());
}

}  // namespace

GnomeSearch::GnomeSearch(SearchSource source)
    : _source(std::move(source))
{
    qDBusRegisterMetaType<QList<QVariantMap>>();
}

QString GnomeSearch::introspection() const
{
    return QStringLiteral(R"(  <interface name="org.gnome.Shell.SearchProvider2">
    <method name="GetInitialResultSet">
      <arg name="terms" type="as" direction="in"/>
      <arg name="results" type="as" direction="out"/>
    </method>
    <method name="GetSubsearchResultSet">
      <arg name="previous_results" type="as" direction="in"/>
      <arg name="terms" type="as" direction="in"/>
      <arg name="results" type="as" direction="out"/>
    </method>
    <method name="GetResultMetas">
      <arg name="identifiers" type="as" direction="in"/>
      <arg name="metas" type="aa{sv}" direction="out"/>
    </method>
    <method name="ActivateResult">
      <arg name="identifier" type="s" direction="in"/>
      <arg name="terms" type="as" direction="in"/>
      <arg name="timestamp" type="u" direction="in"/>
    </method>
    <method name="LaunchSearch">
      <arg name="terms" type="as" direction="in"/>
      <arg name="timestamp" type="u" direction="in"/>
    </method>
  </interface>
)");
}

QStringList GnomeSearch::keysOf(const QStringList& terms) const
{
    QStringList keys;
    for (const PullRequestRow* const row : found(_source.rows(), terms)) {
        keys.append(keyOf(*row));
    }
    return keys;
}

/// Leaves out results that are not listed any more.
QList<QVariantMap> GnomeSearch::describe(const QStringList& keys) const
{
    QHash<QString, const PullRequestRow*> rows;
    for (const PullRequestRow& row : _source.rows()) {
        rows.insert(keyOf(row), &row);
    }
    QList<QVariantMap> descriptions;
    for (const QString& key : keys) {
        if (const PullRequestRow* const row = rows.value(key)) {
            descriptions.append(
                {{QStringLiteral("id"), key},
                 {QStringLiteral("name"), plainText(row->pullRequest.title)},
                 {QStringLiteral("description"), detailsOf(row->pullRequest)},
                 {QStringLiteral("gicon"), BusNames::service}});
        }
    }
    return descriptions;
}

bool GnomeSearch::handle(const QDBusMessage& call, const QDBusConnection& bus)
{
    if (call.interface() != QLatin1String(interface)) {
        return false;
    }
    const QString member = call.member();
    const auto* const method =
        std::ranges::find_if(methods, [&](const Method& each) { return member == each.name; });
    if (method == methods.end()) {
        return false;
    }
    if (hasSignature(call, bus, method->signature)) {
        answer(call, bus);
    }
    return true;
}

/// Requires: arguments of the right types.
void GnomeSearch::answer(const QDBusMessage& call, const QDBusConnection& bus)
{
    const auto reply = [&](const QVariant& value) { bus.send(call.createReply(value)); };
    const QVariantList arguments = call.arguments();
    const QString member = call.member();
    if (member == initialResults) {
        reply(keysOf(arguments.at(0).toStringList()));
    } else if (member == laterResults) {
        reply(keysOf(arguments.at(1).toStringList()));
    } else if (member == describing) {
        reply(QVariant::fromValue(describe(arguments.at(0).toStringList())));
    } else if (member == activation) {
        bus.send(call.createReply());
        _source.open(arguments.at(0).toString());
    } else {
        bus.send(call.createReply());
        _source.showAll(arguments.at(0).toStringList().join(QLatin1Char(' ')));
    }
}

}  // namespace TarnwickDirect
