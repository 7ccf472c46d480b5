// SPDX-License-Identifier: MIT
// The register ends, or its window goes, while the cashier is asked something.
#include "commandfixture.h"
#include "dialogdouble.h"
#include "longwork.h"
#include "orderlyend.h"
#include "receiptprinter.h"
#include "registeraction.h"
#include "registerwindow.h"
#include "savingdouble.h"
#include "storeddocumentcommands.h"
#include "terminaldouble.h"

#include <QApplication>
#include <QDirIterator>
#include <QTest>

#include <ostream>
#include <tuple>

using namespace Qt::StringLiterals;

namespace
{

enum class Ending { InOrder, AtOnce, WithoutTheWindow };

} // namespace

/// A register in its event loop, which ends while a form of that name is open.
class OpenQuestion : public CommandFixture
{
protected:
    OpenQuestion()
    {
        storedDocumentCommands.offer(controller.object);
        notifier.object.subscribe(&longWork);
        window = std::make_unique<RegisterWindow>(*till, marks, QList<FunctionKey>(), longWork, QString());
        gui.object.host().stage = window.get();
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    ~OpenQuestion() override { gui.object.host().stage = nullptr; }

public:
    // What asks, of the rows below.

    void askToRemoveExternalGoods()
    {
        till->add(article(amoxidar));
        till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
        till->save();
        run(registeraction::askToRemovePosition, positionNumber(1));
    }
    void askToCancel()
    {
        till->add(article(amoxidar));
        run(registeraction::askToCancelDocument);
    }
    void askToVoid() { run(registeraction::voidByNumber, {{u"number"_s, sold()}}); }
    void askWhichToVoid()
    {
        sold();
        run(registeraction::voidByNumber);
    }
    void askWhichToReturn()
    {
        till->add(article(amoxidar));
        sold();
        run(registeraction::returnSale, {{u"number"_s, 1}});
    }
    void askForADocument()
    {
        suspend();
        run(registeraction::showDocuments);
    }
    void askForGoods()
    {
        till->add(article(amoxidar));
        run(registeraction::addGoods);
    }
    void askForPacks()
    {
        till->add(article(amoxidar));
        run(registeraction::changeQuantity, positionNumber(1));
    }
    void askAboutMuchMoney()
    {
        standAtPayment();
        run(registeraction::pay, {{u"received"_s, u"99999"_s}});
    }
    void askWhatTheBusyTerminalDid() { payAndLoseTheAnswer(CardAnswer::busy()); }
    void askWhatTheTerminalDid() { payAndLoseTheAnswer(CardAnswer::unknown()); }
    void askForCashInPlaceOfACard()
    {
        standAtPayment();
        {
            SavingDouble saving;
            saving.onSave = [](const auto& document, const QString&, const auto& write) {
                const bool closes = document->isClosed();
                return !closes && write();
            };
            run(registeraction::pay, {{u"method"_s, u"card"_s}});
        }
        ASSERT_TRUE(till->document()) << "it is charged and could not be closed";
        terminal.disconnect();
        run(control::CancelDocument);
    }
    void askAtTheStart()
    {
        payAndLoseTheAnswer(CardAnswer::busy());
        paymentCommands->settleRestored();
    }

protected:
    void standAtPayment()
    {
        till->add(article(amoxidar));
        till->setPhase(Till::Phase::Payment);
    }
    void payAndLoseTheAnswer(const CardAnswer& found)
    {
        standAtPayment();
        terminal->loseAnswers();
        terminal->onFind = [found](const auto&) { return found; };
        run(registeraction::pay, {{u"method"_s, u"card"_s}});
    }

    void end(Ending ending)
    {
        atTheQuestion = contents();
        switch (ending) {
        case Ending::InOrder:
            orderlyEnd.begin();
            break;
        case Ending::AtOnce:
            QCoreApplication::exit();
            break;
        case Ending::WithoutTheWindow:
            window.reset();
            orderlyEnd.begin();
            break;
        }
    }
    /// What is saved, by the files' names.
    QMap<QString, QByteArray> contents() const
    {
        QMap<QString, QByteArray> contents;
        QDirIterator files(folder.path(), {u"*.json"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            contents.insert(file.fileName(), file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        }
        return contents;
    }

    PositionMarks marks;
    LongWork longWork;
    ReceiptPrinter printer{folder.path(), marks};
    StoredDocumentCommands storedDocumentCommands{*till, printer, marks};
    ConnectedTerminal terminal;
    DialogDouble dialog;
    OrderlyEnd orderlyEnd{[this] { till->save(); }};
    std::unique_ptr<RegisterWindow> window;
    QMap<QString, QByteArray> atTheQuestion;
};

namespace
{

struct Asking {
    const char* name;
    const char* form;
    void (OpenQuestion::*ask)();
    int answeredBefore = 0; ///< so many questions are answered with no before the one that is meant
};

std::ostream& operator<<(std::ostream& stream, const Asking& asking)
{
    return stream << asking.name;
}

constexpr Asking askings[] = {
    {"removingExternalGoods", "questionForm", &OpenQuestion::askToRemoveExternalGoods},
    {"cancelling", "questionForm", &OpenQuestion::askToCancel},
    {"voiding", "questionForm", &OpenQuestion::askToVoid},
    {"whichToVoid", "textInputForm", &OpenQuestion::askWhichToVoid},
    {"whichToReturn", "returnForm", &OpenQuestion::askWhichToReturn},
    {"listOfDocuments", "documentListForm", &OpenQuestion::askForADocument},
    {"listOfGoods", "goodsSelectionForm", &OpenQuestion::askForGoods},
    {"packs", "textInputForm", &OpenQuestion::askForPacks},
    {"muchMoney", "questionForm", &OpenQuestion::askAboutMuchMoney},
    {"busyTerminal", "questionForm", &OpenQuestion::askWhatTheBusyTerminalDid},
    {"lostAnswer", "questionForm", &OpenQuestion::askWhatTheTerminalDid},
    {"lostAnswerAndNothingMoved", "questionForm", &OpenQuestion::askWhatTheTerminalDid, 1},
    {"cashInPlaceOfACard", "questionForm", &OpenQuestion::askForCashInPlaceOfACard},
    {"lostAnswerAtTheStart", "questionForm", &OpenQuestion::askAtTheStart, 1},
};

struct NamedEnding {
    const char* name;
    Ending ending;
};

std::ostream& operator<<(std::ostream& stream, const NamedEnding& ending)
{
    return stream << ending.name;
}

constexpr NamedEnding endings[] = {
    {"endsInOrder", Ending::InOrder},
    {"endsAtOnce", Ending::AtOnce},
    {"windowGoes", Ending::WithoutTheWindow},
};

} // namespace

class RegisterEnds : public OpenQuestion, public ::testing::WithParamInterface<std::tuple<Asking, NamedEnding>>
{
};

TEST_P(RegisterEnds, whileTheCashierIsAsked_theQuestionIsOverFirstAndNothingIsDone)
{
    const auto& [asking, ending] = GetParam();
    bool isOver = false;
    QTimer::singleShot(0, &longWork, [&, ask = asking.ask] {
        (this->*ask)();
        isOver = true;
    });
    for (int question = 0; question < asking.answeredBefore; ++question) {
        answerQuestion("noButton");
    }
    cashier.when([form = QString::fromLatin1(asking.form)] { return Cashier::isOnTop(form); },
                 [this, how = ending.ending] { end(how); });
    EXPECT_EQ(QCoreApplication::exec(), 0);

    EXPECT_TRUE(isOver) << "the till is still needed until then";
    EXPECT_TRUE(cashier.isDone());
    EXPECT_FALSE(gui.object.topForm());
    EXPECT_FALSE(controller.object.isBusy());
    EXPECT_FALSE(atTheQuestion.isEmpty());
    EXPECT_EQ(contents(), atTheQuestion);
}

INSTANTIATE_TEST_SUITE_P(, RegisterEnds, ::testing::Combine(::testing::ValuesIn(askings), ::testing::ValuesIn(endings)),
                         [](const auto& instance) {
                             return std::string(std::get<0>(instance.param).name) + '_' +
                                    std::get<1>(instance.param).name;
                         });
