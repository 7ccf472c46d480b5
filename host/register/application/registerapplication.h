// SPDX-License-Identifier: MIT
#pragma once

#include "commandline.h"
#include "goodscatalogue.h"
#include "goodscommands.h"
#include "keycommands.h"
#include "longwork.h"
#include "menucommands.h"
#include "messagecatalogues.h"
#include "opendocumentcommands.h"
#include "orderlyend.h"
#include "paymentcommands.h"
#include "pluginhost.h"
#include "pluginwarnings.h"
#include "positionmarks.h"
#include "printedreports.h"
#include "receiptprinter.h"
#include "registerwindow.h"
#include "scenarioplayer.h"
#include "startupfailure.h"
#include "storeddocumentcommands.h"
#include "terminationsignal.h"
#include "till.h"

#include <QLockFile>
#include <QStringList>

#include <memory>
#include <optional>

/// The register from start to end: configuration, data folder, plug-ins, window, and the document that was open.
class RegisterApplication
{
public:
    explicit RegisterApplication(const CommandLine& commandLine);
    ~RegisterApplication();
    RegisterApplication(const RegisterApplication&) = delete;
    RegisterApplication& operator=(const RegisterApplication&) = delete;

    /// Opens the window; returns nothing when it is open.
    std::optional<StartupFailure> start();
    /// Runs the event loop until the window is closed, the scenario has ended or the system asks for the end.
    /// @return the exit status
    int run();

private:
    std::optional<StartupFailure> checkNamedFolders() const;
    std::optional<StartupFailure> readConfiguration();
    std::optional<StartupFailure> lockDataFolder();
    std::optional<StartupFailure> readOpenDocument();
    void configureThisRun();
    std::optional<StartupFailure> readScenario();
    QSize windowSize() const;
    void openWindow();
    void resumeWork();
    void printInterrupted();
    void followInactivity();
    void showPlugins();
    void showConfigurationProblems();
    void followCatalogue();
    void showCatalogueFailure(const tr::Tr& message);
    void showFailure(const QString& plugin, const tr::Tr& text);
    [[noreturn]] void giveUp();

    TerminationSignal m_terminationSignal; ///< first: a signal does not interrupt what the destructor does
    CommandLine m_commandLine;
    QStringList m_configurationProblems;
    std::unique_ptr<QLockFile> m_lockFile;
    OpenDocumentFile::Loaded m_savedDocument = QSharedPointer<Document>();
    MessageCatalogues m_messages;
    GoodsCatalogue m_catalogue;
    LongWork m_longWork;
    PositionMarks m_marks;
    PluginHost m_plugins;
    std::unique_ptr<Till> m_till;
    std::unique_ptr<ReceiptPrinter> m_printer;
    std::unique_ptr<PrintedReports> m_reports;
    std::unique_ptr<OpenDocumentCommands> m_openDocumentCommands;
    std::unique_ptr<GoodsCommands> m_goodsCommands;
    std::unique_ptr<PaymentCommands> m_paymentCommands;
    std::unique_ptr<StoredDocumentCommands> m_storedDocumentCommands;
    std::unique_ptr<KeyCommands> m_keyCommands;
    std::unique_ptr<MenuCommands> m_menuCommands;
    std::unique_ptr<RegisterWindow> m_window;
    std::unique_ptr<PluginWarnings> m_pluginWarnings;
    std::unique_ptr<ScenarioPlayer> m_player;
    OrderlyEnd m_orderlyEnd;
};
