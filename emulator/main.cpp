// SPDX-License-Identifier: MIT
#include "commandline.h"
#include "emulatorerror.h"
#include "registryemulator.h"
#include "terminationsignal.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace
{
void tell(const QString& line)
{
    QTextStream(stdout) << line << Qt::endl; // flushes: whoever started the program waits for the line
}

/// Fills the registry, unless its data file holds a state already.
void begin(emulator::RegistryEmulator& registry, const QString& seedFile)
{
    if (seedFile.isEmpty()) {
        return;
    }
    registry.keepSeedFile(seedFile);
    if (registry.store().isEmpty()) {
        registry.reset();
    } else {
        tell(u"data kept, the seed was not used"_s);
    }
}
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"prescription-registry-emulator"_s);
    QCoreApplication::setApplicationVersion(QString::fromUtf8(EMULATOR_VERSION));
    try {
        const auto commandLine = emulator::CommandLine::read(QCoreApplication::arguments());
        emulator::TerminationSignal termination;
        QObject::connect(&termination, &emulator::TerminationSignal::received, &application, &QCoreApplication::quit);
        emulator::RegistryEmulator registry(commandLine.settings);
        begin(registry, commandLine.seedFile);
        registry.start();
        tell(u"registry "_s + registry.url().toString());
        if (!registry.adminUrl().isEmpty()) {
            tell(u"admin "_s + registry.adminUrl().toString());
        }
        return QCoreApplication::exec();
    } catch (const emulator::EmulatorError& error) {
        QTextStream(stderr) << "prescription-registry-emulator: " << error.message() << Qt::endl;
        return 1;
    }
}
