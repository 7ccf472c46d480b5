// SPDX-License-Identifier: MIT
#pragma once

#include "pharmacywindow.h"
#include "receiptprinter.h"
#include "storeddocumentcommands.h"

#include <QList>
#include <QSet>
#include <QStringList>

#include <functional>
#include <tuple>

/// Size of the window, touch mode, language.
using ScreenCase = std::tuple<QSize, bool, const char*>;

/// Everything that the cashier can see, as it is shown: each function shows a screen in all its states and looks at it.
class Screens : public PharmacyWindow, public ::testing::WithParamInterface<ScreenCase>
{
public:
    struct Screen {
        const char* name; ///< of its outermost widget
        void (Screens::*look)();
    };

    static const QList<Screen> sale;
    static const QList<Screen> covers;
    static const QList<Screen> forms;
    static const QList<Screen> dialogs;
    static const QList<Screen> prescriptions;

    /// The names of all these screens.
    static QStringList names();

protected:
    Screens();

    /// Looks at the screens one after the other. Each has to be seen.
    void lookAt(const QList<Screen>& screens);

private:
    // The sale
    void idle();
    void positions();
    void statusLine();
    void payment();
    void paymentByCard();
    void returnByCard();

    // What covers the window
    void work();
    void lockWithoutCode();
    void lockWithCode();
    void lockWithLetters();

    // The register's forms
    void goods();
    void goodsOfAName();
    void documents();
    void documentsWithLetters();
    void positionsToReturn();
    void menu();
    void help();

    // Dialogs
    void questions();
    void messages();
    void inputOfDoses();
    void inputOfACard();

    // The plug-ins' forms
    void choice();
    void details();
    void confirmation();
    void dispenseChoice();

    void expectGood(const QWidget& screen, const char* state);
    void keepPicture(const char* state);
    void expectGoodWindow(const char* state) { expectGood(*window, state); }
    void expectGoodWork(const char* state);
    /// Looks at the form that `show` opens, after `act`, and closes it.
    void expectGoodForm(
        const char* state, const QString& form, const std::function<void()>& show,
        const Cashier::Act& act = [](QWidget&) {});
    void addPositionsInEveryState();

    ReceiptPrinter m_printer{folder.path(), marks};
    StoredDocumentCommands m_documentCommands{*till, m_printer, marks};
    QSet<QString> m_seen; ///< object names
    int m_pictures = 0;
};
