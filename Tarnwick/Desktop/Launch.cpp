#include "Tarnwick/Desktop/Launch.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <array>
#include <utility>

namespace Tarnwick {

GitHub::Environment launchEnvironment(
    GitHub::Environment environment, const std::string& activationToken)
{
    for (const char* const name : std::array{"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        if (activationToken.empty()) {
            environment.erase(name);
        } else {
            environment.insert_or_assign(name, activationToken);
        }
    }
    return environment;
}

void launchDetached(const Launch& launch, const GitHub::Environment& environment)
{
    QProcessEnvironment variables;
    for (const auto& [name, value] : launchEnvironment(environment, launch.activationToken)) {
        variables.insert(
            QFile::decodeName(QByteArray::fromStdString(name)),
            QFile::decodeName(QByteArray::fromStdString(value)));
    }
    QStringList arguments;
    for (const std::string& argument : launch.arguments) {
        arguments.append(QString::fromStdString(argument));
    }
    QProcess process;
    process.setProgram(QFile::decodeName(QByteArray::fromStdString(launch.executable.string())));
    process.setArguments(arguments);
    process.setProcessEnvironment(variables);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.startDetached();
}

}  // namespace Tarnwick
