#include "TarnwickDirect/Search/KRunnerSearch.h"

#include "TarnwickDirect/Search/ListSearch.h"
#include "TarnwickDirect/Status/BusNames.h"

#include <QDBusArgument>
#include <QDBusMetaType>

#include <utility>

namespace TarnwickDirect {

using PullRequestKit::PullRequestRow;

namespace {

constexpr const char* interface = "org.kde.krunner1";

/// More would crowd out the launcher's other results.
constexpr std::size_t mostMatches = 10;

/// The entry that opens the panel.
const QString allKey = QStringLiteral("all");

/// The type `PossibleMatch` of the D-Bus interface.
constexpr int possibleMatch = 30;

struct Match {
    QString id;
    QString text;
    double relevance = 0;
    QString subtext;
};

struct Action {
    QString id;
    QString text;
    QString icon;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Match& match)
{
    argument.beginStructure();
    argument << match.id << match.text << BusNames::service << possibleMatch << match.relevance
             << QVariantMap{{QStringLiteral("subtext"), match.subtext}};
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Match& /*match*/)
{
    return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): nobody sends one.
}

QDBusArgument& operator<<(QDBusArgument& argument, const Action& action)
{
    argument.beginStructure();
    argument << action.id << action.text << action.icon;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Action& /*action*/)
{
    return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): nobody sends one.
}

}  // namespace

KRunnerSearch::KRunnerSearch(SearchSource source)
    : _source(std::move(source))
{
    qDBusRegisterMetaType<Match>();
    qDBusRegisterMetaType<QList<Match>>();
    qDBusRegisterMetaType<Action>();
    qDBusRegisterMetaType<QList<Action>>();
}

QString KRunnerSearch::introspection() const
{
    return QStringLiteral(R"xml(  <interface name="org.kde.krunner1">
    <method name="Actions">
      <arg name="actions" type="a(sss)" direction="out"/>
    </method>
    <method name="Match">
      <arg name="query" type="s" direction="in"/>
      <arg name="matches" type="a(sssida{sv})" direction="out"/>
    </method>
    <method name="Run">
      <arg name="match" type="s" direction="in"/>
      <arg name="action" type="s" direction="in"/>
    </method>
  </interface>
)xml");
}

void KRunnerSearch::match(const QDBusMessage& call, const QDBusConnection& bus) const
{
    const auto hits = found(_source.rows(), _text.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QList<Match> matches;
    for (const PullRequestRow* const row : hits) {
        if (static_cast<std::size_t>(matches.size()) == mostMatches) {
            break;
        }
        // Decreasing, so that the list's order is kept.
        const double relevance = 0.9 - 0.01 * static_cast<double>(matches.size());
        // The launcher interprets some markup.
        matches.append(
            {.id = QString::fromStdString(row->id().storageKey()),
             .text = plainText(row->pullRequest.title).toHtmlEscaped(),
             .relevance = relevance,
             .subtext = detailsOf(row->pullRequest).toHtmlEscaped()});
    }
    if (!matches.isEmpty()) {
        matches.append(
            {.id = allKey,
             .text = QStringLiteral("Show all %1 in Tarnwick").arg(hits.size()),
             .relevance = 0.1,
             .subtext = QString()});
    }
    bus.send(call.createReply(QVariant::fromValue(matches)));
}

bool KRunnerSearch::handle(const QDBusMessage& call, const QDBusConnection& bus)
{
    if (call.interface() != QLatin1String(interface)) {
        return false;
    }
    const QString member = call.member();
    if (member == QLatin1String("Actions")) {
        if (hasSignature(call, bus, "")) {
            bus.send(call.createReply(QVariant::fromValue(QList<Action>())));
        }
    } else if (member == QLatin1String("Match")) {
        if (hasSignature(call, bus, "s")) {
            _text = call.arguments().constFirst().toString();
            match(call, bus);
        }
    } else if (member == QLatin1String("Run")) {
        if (hasSignature(call, bus, "ss")) {
            bus.send(call.createReply());
            const QString which = call.arguments().constFirst().toString();
            if (which == allKey) {
                _source.showAll(_text);
            } else {
                _source.open(which);
            }
        }
    } else {
        return false;
    }
    return true;
}

}  // namespace TarnwickDirect
