// SPDX-License-Identifier: MIT
#include "registerapplication.h"

#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "config.h"
#include "configurationreport.h"
#include "datafolderlock.h"
#include "demodata.h"
#include "dialog.h"
#include "documentwatcher.h"
#include "documentwords.h"
#include "formhost.h"
#include "functionkey.h"
#include "graphicaluserinterface.h"
#include "guardedapplication.h"
#include "inactivitylocker.h"
#include "listenerhost.h"
#include "logsetup.h"
#include "obstaclenotice.h"
#include "registerformcreator.h"
#include "registerstyle.h"
#include "scenario.h"
#include "secretfiles.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QTemporaryFile>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

bool canBeWrittenTo(const QString& folder)
{
    return QDir().mkpath(folder) && QTemporaryFile(folder + u"/.writable-XXXXXX"_s).open();
}

/// Logs go to "Logging:folder", or to the folder log of the data folder when it is not configured or cannot be written
/// to.
void setUpLogging(Config& config, const QDir& data)
{
    const QString key = u"Logging:folder"_s;
    const QString configured = config.getString(key);
    if (configured.isEmpty() || !canBeWrittenTo(configured)) {
        data.mkpath(u"log"_s);
        config.setForThisRun(key, data.filePath(u"log"_s));
    }
    ::setUpLogging(config);
    Log4Qt::LogManager::logger(u"register"_s)
        ->info(u"Start of %1 %2 with Qt %3"_s.arg(QCoreApplication::applicationName(),
                                                  QCoreApplication::applicationVersion(),
                                                  QLatin1StringView(qVersion())));
}

/// In a file only: the goods of a server are never the register's to make.
void createDemoGoods(const Config& config)
{
    if (!isDatabaseFile(config, u"Database"_s)) {
        Log4Qt::LogManager::logger(u"register"_s)
            ->warn(u"The demo goods were not created: Database:driver names a server"_s);
        return;
    }
    if (const auto created = createDemoGoods(config.getString(u"Database:name"_s)); !created) {
        Log4Qt::LogManager::logger(u"register"_s)
            ->error(u"The demo goods were not created: "_s + created.failure().detail);
    }
}

/// The keys and the menu entries.
QList<FunctionKey> configuredKeys()
{
    const Config& config = *Singleton<Config>::get();
    return configuredFunctionKeys(config) + configuredMenuEntries(config);
}

/// To the error output, for a start by hand and for the log of a service.
void print(const QString& line)
{
    std::fputs((line + u'\n').toUtf8().constData(), stderr);
}

QString inOneLine(const tr::Tr& message)
{
    return message.ui().simplified();
}
} // namespace

RegisterApplication::RegisterApplication(const CommandLine& commandLine)
    : m_commandLine(commandLine)
    , m_orderlyEnd([this] {
        if (m_till) {
            m_till->save();
        }
    })
{
    QObject::connect(&m_terminationSignal, &TerminationSignal::received, &m_orderlyEnd, &OrderlyEnd::begin);
    m_orderlyEnd.followSession();
}

RegisterApplication::~RegisterApplication()
{
    m_player.reset();
    auto* gui = Singleton<GraphicalUserInterface>::get();
    gui->cancelForms();
    m_plugins.unload(*Singleton<ActionQueueController>::get());
    gui->host().stage = nullptr;
    gui->host().giveUp = {};
    Singleton<ActivityNotifier>::get()->host().failed = {};
    m_pluginWarnings.reset();
    m_window.reset();
    DocumentWatcher::setCurrentDocument(nullptr);
}

std::optional<StartupFailure> RegisterApplication::start()
{
    if (auto failure = checkNamedFolders()) {
        return failure;
    }
    if (auto failure = readConfiguration()) {
        return failure;
    }
    if (auto failure = lockDataFolder()) {
        return failure;
    }
    if (auto failure = readOpenDocument()) {
        return failure;
    }
    configureThisRun();
    m_messages.load(u":/translations/registerplatform"_s);
    m_messages.load(u":/translations/pharmacyregister"_s);
    if (auto failure = readScenario()) {
        return failure;
    }
    applyRegisterStyle(*qApp, windowSize());
    openWindow();
    return std::nullopt;
}

int RegisterApplication::run()
{
    int status = m_player ? exitstatus::scenarioFailed : exitstatus::done; // also when the window is closed early
    QTimer::singleShot(0, m_window.get(), [this] { resumeWork(); });
    if (m_player) {
        QObject::connect(m_player.get(), &ScenarioPlayer::finished, m_window.get(), [this, &status](bool passed) {
            status = passed ? exitstatus::done : exitstatus::scenarioFailed;
            m_window->shutDown();
        });
    }
    QApplication::exec();
    return m_orderlyEnd.hasBegun() ? exitstatus::done : status;
}

std::optional<StartupFailure> RegisterApplication::checkNamedFolders() const
{
    const QList<NamedFolder> unusable = m_commandLine.unusableFolders();
    if (unusable.isEmpty()) {
        return std::nullopt;
    }
    const NamedFolder& first = unusable.constFirst();
    return StartupFailure{first.option == "--screenshots"_L1 ? exitstatus::noScenario : exitstatus::wrongOptions,
                          describe(first) + u"\nMake it, or name another one"_s};
}

std::optional<StartupFailure> RegisterApplication::readConfiguration()
{
    auto config = std::make_unique<Config>(m_commandLine.config);
    const ConfigurationReport report(*config, m_commandLine);
    for (const QString& problem : report.problems) {
        print(problem);
    }
    if (!config->reading()) {
        return StartupFailure{exitstatus::noConfiguration, u"The configuration cannot be read: "_s +
                                                               config->reading().failure().detail +
                                                               u"\nName an INI file with --config FILE.ini"_s};
    }
    if (report.preventsStart) {
        return StartupFailure{exitstatus::noConfiguration,
                              u"The configuration holds something that cannot be used, see above"_s};
    }
    m_configurationProblems = report.problems;
    if (const Expected<void> read = readSecretFiles(*config, report.keys, m_commandLine.config); !read) {
        return StartupFailure{exitstatus::noConfiguration,
                              u"A secret of the configuration cannot be read: "_s + read.failure().detail};
    }
    Singleton<Config>::instance = config.release(); // lives as long as the process, like the plug-ins
    return std::nullopt;
}

std::optional<StartupFailure> RegisterApplication::lockDataFolder()
{
    const QString folder = QDir(m_commandLine.dataFolder).absolutePath();
    const QString advice = u"\nName a folder that exists and can be written to with --data DIR"_s;
    if (m_commandLine.usesOwnDataFolder) {
        QDir().mkpath(folder); // a failure is found below
    }
    if (!QFileInfo(folder).isDir()) {
        return StartupFailure{exitstatus::noDataFolder, u"There is no data folder "_s + folder + advice};
    }
    if (QTemporaryFile probe(folder + u"/.writable-XXXXXX"_s); !probe.open()) {
        return StartupFailure{exitstatus::noDataFolder, u"The data folder "_s + folder + u" cannot be written to: "_s +
                                                            probe.errorString() + advice};
    }
    m_lockFile = std::make_unique<QLockFile>(folder + u"/register.lock"_s);
    m_commandLine.dataFolder = folder;
    return takeLock(*m_lockFile);
}

std::optional<StartupFailure> RegisterApplication::readOpenDocument()
{
    const OpenDocumentFile store(m_commandLine.dataFolder);
    m_savedDocument = store.load();
    if (m_savedDocument || !m_savedDocument.failure().isInTheWay()) {
        return std::nullopt;
    }
    return StartupFailure{exitstatus::damagedDocumentInTheWay,
                          u"The saved document "_s + store.file() + u" is damaged: "_s +
                              m_savedDocument.failure().failure.detail +
                              u"\nIt cannot be set aside, and the next document would overwrite it. "
                              "Move it away, or name another folder with --data DIR"_s};
}

void RegisterApplication::configureThisRun()
{
    Config* config = Singleton<Config>::get();
    const QDir data(m_commandLine.dataFolder);
    config->setForThisRun(u"Register:data"_s, data.path());
    setUpLogging(*config, data);
    for (const QString& problem : m_configurationProblems) {
        Log4Qt::LogManager::logger(u"config"_s)->warn(problem);
    }
    if (m_commandLine.touch) {
        config->setForThisRun(u"GUI:touchMode"_s, u"true"_s);
    }
    if (!m_commandLine.layoutFolders.isEmpty()) {
        config->setForThisRun(u"GUI:layouts"_s, m_commandLine.layoutFolders);
    }
    if (config->getString(u"Database:name"_s).isEmpty()) {
        config->setForThisRun(u"Database:name"_s, data.filePath(u"goods.sqlite"_s));
    }
    if (m_commandLine.demoData || config->getBool(u"Register:demoData"_s)) {
        createDemoGoods(*config);
    }
}

std::optional<StartupFailure> RegisterApplication::readScenario()
{
    if (m_commandLine.scenario.isEmpty()) {
        return std::nullopt;
    }
    const Expected<QList<ScenarioStep>> steps = ::readScenario(m_commandLine.scenario);
    if (!steps) {
        return StartupFailure{exitstatus::noScenario, u"The scenario cannot be played: "_s + steps.failure().detail};
    }
    m_player = std::make_unique<ScenarioPlayer>(*steps, m_commandLine.screenshots, m_commandLine.dataFolder);
    return std::nullopt;
}

QSize RegisterApplication::windowSize() const
{
    const QSize size = m_commandLine.windowSize;
    return size.isValid() ? size : QGuiApplication::primaryScreen()->availableSize();
}

void RegisterApplication::openWindow()
{
    Config* config = Singleton<Config>::get();
    auto* controller = Singleton<ActionQueueController>::get();
    auto* gui = Singleton<GraphicalUserInterface>::get();
    gui->addFormCreator(QSharedPointer<RegisterFormCreator>::create());
    Singleton<ActivityNotifier>::get()->subscribe(&m_longWork);

    m_till = std::make_unique<Till>(m_commandLine.dataFolder);
    m_till->setActivePlugins([this] { return m_plugins.active(); });
    m_till->setMarks(m_marks);
    m_openDocumentCommands = std::make_unique<OpenDocumentCommands>(*m_till);
    m_openDocumentCommands->offer(*controller);
    m_goodsCommands = std::make_unique<GoodsCommands>(*m_till, m_catalogue);
    m_goodsCommands->offer(*controller);
    m_paymentCommands = std::make_unique<PaymentCommands>(*m_till);
    m_paymentCommands->offer(*controller);
    m_printer = std::make_unique<ReceiptPrinter>(m_commandLine.dataFolder, m_marks);
    m_reports = std::make_unique<PrintedReports>(m_commandLine.dataFolder);
    m_till->setPrinting([this](const Document& document) { m_printer->printOrShow(document); });
    m_storedDocumentCommands = std::make_unique<StoredDocumentCommands>(*m_till, *m_printer, m_marks);
    m_storedDocumentCommands->offer(*controller);
    m_keyCommands = std::make_unique<KeyCommands>(*m_till);
    m_keyCommands->offer(*controller);
    m_menuCommands = std::make_unique<MenuCommands>(*m_till, configuredMenuEntries(*config));
    m_menuCommands->offer(*controller);
    m_window = std::make_unique<RegisterWindow>(*m_till, m_marks, configuredFunctionKeys(*config), m_longWork,
                                                config->getString(u"Register:unlockCode"_s));
    m_pluginWarnings = std::make_unique<PluginWarnings>(m_window->statusLine());
    gui->host().stage = m_window.get();
    gui->host().giveUp = [this] { giveUp(); };
    if (auto* application = qobject_cast<GuardedApplication*>(qApp)) {
        QObject::connect(application, &GuardedApplication::failed, m_window.get(),
                         [this](const QString& plugin, const tr::Tr& text) {
                             m_longWork.endAfterFailure();
                             showFailure(plugin, text);
                         });
    }
    // After the event: what the register itself shows of it would take the warning's place.
    Singleton<ActivityNotifier>::get()->host().failed = [this](const QString& plugin, const tr::Tr& text) {
        QMetaObject::invokeMethod(
            m_window.get(), [this, plugin, text] { showFailure(plugin, text); }, Qt::QueuedConnection);
    };
    m_window->resize(windowSize()); // the whole screen too: without a window manager nobody maximizes it
    if (m_commandLine.windowSize.isValid()) {
        m_window->show();
    } else {
        m_window->showMaximized();
    }
    m_window->activateWindow(); // without a window manager no one else gives it the keyboard
}

void RegisterApplication::resumeWork()
{
    if (m_player) {
        m_player->start(); // first: the next calls may show messages
    }
    followInactivity(); // before them, too: nobody may be there to read one
    m_plugins.load(m_commandLine.pluginFolder, *Singleton<ActionQueueController>::get(), m_marks);
    m_plugins.onEnded([this] { showPlugins(); });
    showPlugins();
    showConfigurationProblems();
    m_till->restore(std::exchange(m_savedDocument, QSharedPointer<Document>()));
    m_longWork.endAfterFailure(); // of a plug-in's start or of event 17
    if (m_till->document()) {
        m_window->statusLine().showWarning(documentwords::restored(*m_till->document()));
    }
    m_paymentCommands->settleRestored();
    m_storedDocumentCommands->settleRestored();
    printInterrupted();
    followCatalogue();
}

/// Prints the receipt that the end of the register interrupted, or says why it has to wait.
void RegisterApplication::printInterrupted()
{
    const QSharedPointer<Document> document = m_printer->interrupted(m_till->archive());
    if (document && !showIfObstacle(m_till->obstacleToPrinting(*document))) {
        m_printer->printOrShow(*document);
    }
}

void RegisterApplication::followInactivity()
{
    auto* locker = Singleton<InactivityLocker>::get();
    QObject::connect(locker, &InactivityLocker::lock, m_window.get(), &RegisterWindow::lock);
    locker->start();
}

void RegisterApplication::showConfigurationProblems()
{
    if (m_configurationProblems.isEmpty()) {
        return;
    }
    const tr::Tr notice(u"configurationProblems"_s,
                        u"Замечаний к настройкам: %1. Сообщите администратору: подробности в журнале."_s);
    m_window->statusLine().addProblem(notice.arg(QString::number(m_configurationProblems.size())).ui());
}

void RegisterApplication::followCatalogue()
{
    QObject* window = m_window.get();
    QObject::connect(&m_catalogue, &GoodsCatalogue::failed, window,
                     [this](const tr::Tr& message) { showCatalogueFailure(message); });
    QObject::connect(&m_catalogue, &GoodsCatalogue::fileRefused, window,
                     [this](const tr::Tr& message) { m_window->statusLine().showWarning(inOneLine(message)); });
    QObject::connect(&m_catalogue, &GoodsCatalogue::recovered, window, [this] {
        m_window->statusLine().showDone(tr::Tr(u"goodsCatalogueBack"_s, u"Справочник товаров снова доступен"_s).ui());
    });
    m_catalogue.keepFresh();
}

/// A cashier at work is not interrupted: the goods may not be needed now, and a command that needs them shows a
/// message.
void RegisterApplication::showCatalogueFailure(const tr::Tr& message)
{
    if (m_till->document() || Singleton<ActionQueueController>::get()->isBusy()) {
        m_window->statusLine().showWarning(inOneLine(message));
    } else {
        Dialog::create()->showMessage(message, Dialog::Error, 1, 0);
    }
}

void RegisterApplication::showPlugins()
{
    const QStringList active = m_plugins.active();
    m_pluginWarnings->keepThoseOf(active);
    const QString text = active.isEmpty()
                             ? tr::Tr(u"pluginsNone"_s, u"Модулей нет"_s).ui()
                             : tr::Tr(u"pluginsActive"_s, u"Модулей: %1"_s).arg(QString::number(active.size())).ui();
    m_window->statusLine().showPlugins(text, active.join(u'\n'));
    QStringList problems;
    for (const QString& key : unservedKeys(configuredKeys())) {
        problems.append(tr::Tr(u"keyWithoutPlugin"_s, u"«%1» не работает: нет модуля."_s).arg(key).ui());
    }
    if (!m_plugins.problems().isEmpty()) {
        problems.append(
            tr::Tr(u"pluginProblems"_s, u"Модуль не подключён: %1"_s).arg(m_plugins.problems().join(u"; "_s)).ui());
    }
    if (!problems.isEmpty()) {
        m_window->statusLine().showMessage(
            problems.join(u' '),
            tr::Tr(u"pluginProblemsDetails"_s, u"Сообщите администратору. Подробности в журнале, в папке %1"_s)
                .arg(Singleton<Config>::get()->getString(u"Logging:folder"_s))
                .ui());
    }
}

/// In the status line: a message would keep the cashier from working, as often as it happens.
void RegisterApplication::showFailure(const QString& plugin, const tr::Tr& text)
{
    const QString words = text.ui().simplified();
    m_window->statusLine().showWarning(
        plugin.isEmpty() ? words
                         : tr::Tr(u"pluginEventFailed"_s, u"Сбой модуля «%1». %2"_s).arg(plugin).arg(words).ui());
}

/// The open document was saved with its last change.
void RegisterApplication::giveUp()
{
    Log4Qt::LogManager::logger(u"register"_s)
        ->error(u"An action does not end although the register is being closed; the process ends"_s);
    m_plugins.deinitialise();
    m_lockFile.reset();
    std::_Exit(exitstatus::actionWithoutEnd);
}
