// SPDX-License-Identifier: MIT
#include "registerapplication.h"

#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "basicexception.h"
#include "config.h"
#include "demodata.h"
#include "dialog.h"
#include "documentwatcher.h"
#include "documentwords.h"
#include "functionkey.h"
#include "graphicaluserinterface.h"
#include "inactivitylocker.h"
#include "registerformcreator.h"
#include "registerstyle.h"
#include "scenario.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QTemporaryFile>
#include <QTimer>

#include <utility>

RegisterApplication::RegisterApplication(const CommandLine& commandLine)
    : m_commandLine(commandLine)
{
    Q_INIT_RESOURCE(register);
}

RegisterApplication::~RegisterApplication()
{
    m_player.reset();
    auto* gui = Singleton<GraphicalUserInterface>::get();
    gui->cancelForms();
    m_plugins.unload(*Singleton<ActionQueueController>::get());
    gui->setStage(nullptr);
    m_window.reset();
    DocumentWatcher::setCurrentDocument(nullptr);
}

std::optional<StartupFailure> RegisterApplication::start()
{
    if (auto failure = readConfiguration())
        return failure;
    if (auto failure = takeDataFolder())
        return failure;
    if (auto failure = readReceipt())
        return failure;
    configureThisRun();
    m_messages.load(QStringLiteral(":/translations/registerplatform"));
    m_messages.load(QStringLiteral(":/translations/pharmacyregister"));
    if (auto failure = readScenario())
        return failure;
    applyRegisterStyle(*qApp, windowHeight());
    openWindow();
    return std::nullopt;
}

int RegisterApplication::run()
{
    int status = m_player ? exitstatus::scenarioFailed : exitstatus::done; // until the scenario has been played
    QTimer::singleShot(0, m_window.get(), [this] { takeUpWork(); });
    if (m_player) {
        QObject::connect(m_player.get(), &ScenarioPlayer::finished, m_window.get(), [this, &status](bool held) {
            status = held ? exitstatus::done : exitstatus::scenarioFailed;
            m_window->close();
        });
    }
    QApplication::exec();
    return status;
}

std::optional<StartupFailure> RegisterApplication::readConfiguration()
{
    auto config = std::make_unique<Config>(m_commandLine.config);
    if (!config->isReadable())
        return StartupFailure{exitstatus::noConfiguration,
                              QStringLiteral("The configuration cannot be read: ") + config->errorText() +
                                  QStringLiteral("\nName an INI file with --config FILE.ini")};
    Singleton<Config>::instance = config.release(); // lives as long as the process, as plug-ins do
    return std::nullopt;
}

std::optional<StartupFailure> RegisterApplication::takeDataFolder()
{
    const QString folder = QDir(m_commandLine.dataFolder).absolutePath();
    const QString advice = QStringLiteral("\nName a folder that exists and can be written to with --data DIR");
    if (!QFileInfo(folder).isDir())
        return StartupFailure{exitstatus::noDataFolder, QStringLiteral("There is no data folder ") + folder + advice};
    if (QTemporaryFile probe(folder + QStringLiteral("/.writable-XXXXXX")); !probe.open())
        return StartupFailure{exitstatus::noDataFolder, QStringLiteral("The data folder ") + folder +
                                                            QStringLiteral(" cannot be written to: ") +
                                                            probe.errorString() + advice};
    m_lockFile = std::make_unique<QLockFile>(folder + QStringLiteral("/register.lock"));
    m_lockFile->setStaleLockTime(0); // a lock is stale only when its process is gone, however old it is
    if (!m_lockFile->tryLock(0))
        return StartupFailure{exitstatus::alreadyRunning,
                              QStringLiteral("Another register works with the data folder ") + folder +
                                  QStringLiteral("\nClose it, or name another folder with --data DIR")};
    m_commandLine.dataFolder = folder;
    return std::nullopt;
}

std::optional<StartupFailure> RegisterApplication::readReceipt()
{
    const ReceiptStore store(m_commandLine.dataFolder);
    m_savedReceipt = store.load();
    if (!m_savedReceipt.isInTheWay())
        return std::nullopt;
    return StartupFailure{exitstatus::damagedReceiptInTheWay,
                          QStringLiteral("The saved receipt ") + store.file() + QStringLiteral(" is damaged: ") +
                              m_savedReceipt.damage +
                              QStringLiteral("\nIt cannot be set aside, and the next receipt would overwrite it. "
                                             "Move it away, or name another folder with --data DIR")};
}

void RegisterApplication::configureThisRun()
{
    Config* config = Singleton<Config>::get();
    const QDir data(m_commandLine.dataFolder);
    config->setForThisRun(QStringLiteral("Register:data"), data.path());
    data.mkpath(QStringLiteral("log"));
    config->setForThisRun(QStringLiteral("Logging:folder"), data.filePath(QStringLiteral("log")));
    if (m_commandLine.touch)
        config->setForThisRun(QStringLiteral("GUI:touchMode"), QStringLiteral("true"));
    if (!m_commandLine.layoutFolders.isEmpty())
        config->setForThisRun(QStringLiteral("GUI:layouts"), m_commandLine.layoutFolders);
    if (config->getString(QStringLiteral("Database:name")).isEmpty())
        config->setForThisRun(QStringLiteral("Database:name"), data.filePath(QStringLiteral("goods.sqlite")));
    if (m_commandLine.demoData || config->getBool(QStringLiteral("Register:demoData")))
        createDemoGoods(config->getString(QStringLiteral("Database:name")));
}

std::optional<StartupFailure> RegisterApplication::readScenario()
{
    if (m_commandLine.scenario.isEmpty())
        return std::nullopt;
    const ScenarioFile scenario = ScenarioFile::read(m_commandLine.scenario);
    if (!scenario.error.isEmpty())
        return StartupFailure{exitstatus::noScenario,
                              QStringLiteral("The scenario cannot be played: ") + scenario.error};
    if (!QDir().mkpath(m_commandLine.screenshots))
        return StartupFailure{exitstatus::noScenario,
                              QStringLiteral("No folder for pictures: ") + m_commandLine.screenshots};
    m_player = std::make_unique<ScenarioPlayer>(scenario.steps, m_commandLine.screenshots, m_commandLine.dataFolder);
    return std::nullopt;
}

int RegisterApplication::windowHeight() const
{
    const QSize size = m_commandLine.windowSize;
    return size.isValid() ? size.height() : QGuiApplication::primaryScreen()->availableSize().height();
}

void RegisterApplication::openWindow()
{
    Config* config = Singleton<Config>::get();
    auto* controller = Singleton<ActionQueueController>::get();
    auto* gui = Singleton<GraphicalUserInterface>::get();
    gui->addFormCreator(QSharedPointer<RegisterFormCreator>::create());
    Singleton<ActivityNotifier>::get()->subscribe(&m_longWork);

    m_sale = std::make_unique<Sale>(m_commandLine.dataFolder);
    m_commands = std::make_unique<RegisterCommands>(*m_sale, m_catalogue);
    m_commands->offer(*controller);
    m_printer = std::make_unique<ReceiptPrinter>(m_commandLine.dataFolder, m_marks);
    m_sale->setPrinting([this](const Receipt& receipt) { m_printer->print(receipt); });
    m_documentCommands = std::make_unique<DocumentCommands>(*m_sale, *m_printer, m_marks);
    m_documentCommands->offer(*controller);
    m_menuCommands = std::make_unique<MenuCommands>(*m_sale, configuredMenuEntries(*config));
    m_menuCommands->offer(*controller);
    m_window = std::make_unique<RegisterWindow>(*m_sale, m_marks, configuredFunctionKeys(*config), m_longWork,
                                                config->getString(QStringLiteral("Register:unlockCode")));
    gui->setStage(m_window.get());
    if (m_commandLine.windowSize.isValid()) {
        m_window->resize(m_commandLine.windowSize);
        m_window->show();
    } else {
        m_window->showMaximized();
    }
    m_window->activateWindow(); // without a window manager nobody else gives it the keyboard
}

void RegisterApplication::takeUpWork()
{
    if (m_player)
        m_player->start(); // first, since what follows may show messages
    m_plugins.load(m_commandLine.pluginFolder, *Singleton<ActionQueueController>::get(), m_marks);
    tellPlugins();
    m_sale->restore(std::exchange(m_savedReceipt, {}));
    if (m_sale->receipt())
        m_window->statusLine().showWarning(documentwords::restored(*m_sale->receipt()));
    m_printer->printInterrupted(m_sale->archive());
    try {
        m_catalogue.check();
    } catch (const BasicException& unreadable) {
        MockFactory<Dialog>::create()->showMessage(unreadable.tr(), Dialog::Error, 1, 0);
    }
    auto* locker = Singleton<InactivityLocker>::get();
    QObject::connect(locker, &InactivityLocker::lock, m_window.get(), &RegisterWindow::lock);
    locker->start();
}

void RegisterApplication::tellPlugins()
{
    const QStringList active = m_plugins.active();
    const QString text = active.isEmpty() ? tr::Tr(QStringLiteral("pluginsNone"), QStringLiteral("Модулей нет")).ui()
                                          : tr::Tr(QStringLiteral("pluginsActive"), QStringLiteral("Модулей: %1"))
                                                .arg(QString::number(active.size()))
                                                .ui();
    m_window->statusLine().showPlugins(text, active.join(QLatin1Char('\n')));
    if (!m_plugins.problems().isEmpty())
        m_window->statusLine().showMessage(
            tr::Tr(QStringLiteral("pluginProblems"), QStringLiteral("Модуль не подключён: %1"))
                .arg(m_plugins.problems().join(QStringLiteral("; ")))
                .ui());
}
