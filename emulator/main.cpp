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
void print(const QString& line)
{
    QTextStream(stdout) << line << Qt::endl; // endl flushes: a script waits for this line
}

/// Fills the registry from the seed, unless its data file already holds a state.
void fill(emulator::RegistryEmulator& registry, const QString& seedFile)
{
    if (seedFile.isEmpty()) {
        return;
    }
    registry.keepSeedFile(seedFile);
    if (registry.store().isEmpty()) {
        registry.reset();
    } else {
        print(u"data kept, the seed was not used"_s);
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
        fill(registry, commandLine.seedFile);
        registry.start();
        print(u"registry "_s + registry.url().toString());
        if (!registry.adminUrl().isEmpty()) {
            print(u"admin "_s + registry.adminUrl().toString());
        }
        return QCoreApplication::exec();
    } catch (const emulator::EmulatorError& error) {
        QTextStream(stderr) << "prescription-registry-emulator: " << error.message() << Qt::endl;
        return 1;
    }
}
