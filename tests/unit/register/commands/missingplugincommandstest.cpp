// SPDX-License-Identifier: MIT
// Commands about a position whose plug-in does not work: they say so, and no other plug-in's hook runs.
#include "commandfixture.h"
#include "dialogdouble.h"
#include "pluginscope.h"
#include "registeraction.h"
#include "storeddocumentcommands.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

class MissingPluginCommands : public CommandFixture
{
protected:
    MissingPluginCommands()
    {
        documentCommands.offer(controller.object);
        activePlugins = {u"prescriptions"_s};
        for (const auto type : {control::Subtotal, control::SubtotalAndPayment, control::RemovePosition,
                                control::CancelDocument, control::CancelDocumentFromMenu, control::VoidDocument}) {
            for (const auto context : {EContext::Idle, EContext::OpenDocument, EContext::StoredDocuments}) {
                addHook(context, type, [this](const control::Action&) {
                    ++hooks;
                    return EContext::GoOn;
                });
            }
        }
    }

    /// A sale of one position that belongs to the plug-in.
    void serve()
    {
        till->add(article(amoxidar));
        const PluginScope scope(u"prescriptions"_s);
        till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    }
    void close() { ASSERT_TRUE(till->close({Payment::cash(till->document()->getSum())})); }
    void idle() { activePlugins = {u"discounts"_s}; }

    /// The command stops with one notice that names the plug-in, before any question and any hook.
    void expectRefused(control::EActionType type, const QVariantMap& arguments = {})
    {
        SCOPED_TRACE(type);
        const DialogDouble dialog;
        hooks = 0;
        EXPECT_EQ(run(type, arguments), EContext::Stop);
        ASSERT_EQ(dialog.messages().size(), 1);
        EXPECT_TRUE(dialog.messages().first().text.contains(u"ведёт модуль «prescriptions», а он не работает"_s));
        EXPECT_EQ(dialog.messages().first().kind, Dialog::Notice);
        EXPECT_EQ(hooks, 0);
    }

    PositionMarks marks;
    ReceiptPrinter printer{folder.path(), marks};
    StoredDocumentCommands documentCommands{*till, printer, marks};
    int hooks = 0;
};

TEST_F(MissingPluginCommands, documentOpen_everyWayOutButSuspendingIsRefused)
{
    serve();
    idle();
    const QJsonObject before = till->document()->toJson();
    expectRefused(control::Subtotal);
    expectRefused(control::SubtotalAndPayment);
    expectRefused(registeraction::askToRemovePosition, positionNumber(1));
    expectRefused(control::RemovePosition, positionNumber(1));
    expectRefused(registeraction::askToCancelDocument);
    expectRefused(control::CancelDocument);
    expectRefused(control::CancelDocumentFromMenu);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->toJson(), before);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    EXPECT_EQ(run(registeraction::suspend), EContext::GoOn);
}

TEST_F(MissingPluginCommands, pluginEndsDuringThePayment_paymentIsRefused)
{
    serve();
    ASSERT_EQ(run(control::SubtotalAndPayment), EContext::GoOn);
    idle();
    expectRefused(registeraction::pay);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getState(), Document::State::Open);
}

TEST_F(MissingPluginCommands, returnOpen_isRefusedToo)
{
    serve();
    close();
    ASSERT_TRUE(till->returnSale(archived(1)));
    idle();
    expectRefused(control::Subtotal);
    expectRefused(control::SubtotalAndPayment);
    expectRefused(control::CancelDocument);
    EXPECT_EQ(run(registeraction::suspend), EContext::GoOn);
}

TEST_F(MissingPluginCommands, saleClosed_isNeitherReturnedNorVoided)
{
    serve();
    close();
    idle();
    expectRefused(registeraction::returnSale, {{u"number"_s, 1}});
    expectRefused(registeraction::voidByNumber, {{u"number"_s, 1}});
    expectRefused(control::VoidDocument,
                  {{u"document"_s, QVariant::fromValue(archived(1).staticCast<AbstractDocument>())}});
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
}

TEST_F(MissingPluginCommands, saleOfBothKindsClosed_theRegistersOwnPositionComesBack)
{
    serve();
    till->add(article(amoxidar, 2));
    till->add(article(amoxidar, 3));
    close();
    idle();
    hooks = 0;
    cashier.onForm(u"returnForm"_s, [](QWidget& form) {
        auto* table = form.findChild<QAbstractItemView*>(u"positionsTable"_s);
        const auto chosen = [table](int row) { return table->model()->index(row, 0).data().toString(); };
        EXPECT_EQ((QStringList{chosen(0), chosen(1), chosen(2)}), (QStringList{u"—"_s, u"✓"_s, u"✓"_s}));
        const auto* hint = form.findChild<QLabel*>(u"hintLabel"_s);
        EXPECT_TRUE(hint->text().startsWith(u"Выбрано 2 из 3 на сумму 62,00."_s)) << qPrintable(hint->text());
        emit table->clicked(table->model()->index(0, 0));
        EXPECT_EQ(chosen(0), u"—"_s);
        EXPECT_EQ(hint->text(), u"Позицию № 1 пока нельзя вернуть: не работает модуль «prescriptions»."_s);
        press(form, "allButton");
        EXPECT_EQ((QStringList{chosen(0), chosen(1), chosen(2)}), (QStringList{u"—"_s, QString(), QString()}));
        press(form, "allButton");
        EXPECT_EQ((QStringList{chosen(0), chosen(1), chosen(2)}), (QStringList{u"—"_s, u"✓"_s, u"✓"_s}));
        press(form, "returnButton");
    });
    ASSERT_EQ(run(registeraction::returnSale, {{u"number"_s, 1}}), EContext::GoOn);
    EXPECT_EQ(till->document()->positions().size(), 2);
    EXPECT_EQ(run(control::SubtotalAndPayment), EContext::GoOn);
    close();
    expectRefused(registeraction::returnSale, {{u"number"_s, 1}});
    activePlugins = {u"prescriptions"_s};
    ASSERT_EQ(run(registeraction::returnSale, {{u"number"_s, 1}}), EContext::GoOn);
    EXPECT_EQ(till->document()->positions().size(), 1);
}

TEST_F(MissingPluginCommands, saleSuspended_isNotVoided)
{
    serve();
    ASSERT_TRUE(till->suspend());
    idle();
    expectRefused(registeraction::voidByNumber, {{u"number"_s, 1}});
    EXPECT_EQ(archived(1)->getState(), Document::State::Suspended);
}

TEST_F(MissingPluginCommands, positionOfAWorkingPluginUndecidedByAnother_everyWayOutButSuspendingIsRefused)
{
    till->add(article(amoxidar));
    {
        const PluginScope scope(u"discounts"_s);
        till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    }
    till->document()->position(1)->noteUndecidedPlugins({u"prescriptions"_s});
    idle();
    expectRefused(control::Subtotal);
    expectRefused(control::SubtotalAndPayment);
    expectRefused(control::RemovePosition, positionNumber(1));
    expectRefused(control::CancelDocument);
    expectRefused(control::CancelDocumentFromMenu);
    ASSERT_EQ(run(registeraction::suspend), EContext::GoOn);
    expectRefused(registeraction::voidByNumber, {{u"number"_s, 1}});
    expectRefused(control::VoidDocument,
                  {{u"document"_s, QVariant::fromValue(archived(1).staticCast<AbstractDocument>())}});
}

TEST_F(MissingPluginCommands, worksAgain_hooksRunAndTheCommandsAreDone)
{
    serve();
    idle();
    expectRefused(control::SubtotalAndPayment);
    activePlugins = {u"prescriptions"_s};
    EXPECT_EQ(run(control::SubtotalAndPayment), EContext::GoOn);
    EXPECT_EQ(hooks, 1);
    EXPECT_EQ(till->phase(), Till::Phase::Payment);
}

TEST_F(MissingPluginCommands, listOfDocuments_disablesItsButtonsAndSaysWhy)
{
    serve();
    close();
    idle();
    cashier.onForm(u"documentListForm"_s, [](QWidget& root) {
        EXPECT_FALSE(root.findChild<QPushButton*>(u"takeBackButton"_s)->isEnabled());
        EXPECT_FALSE(root.findChild<QPushButton*>(u"annulButton"_s)->isEnabled());
        EXPECT_FALSE(root.findChild<QPushButton*>(u"printButton"_s)->isEnabled());
        EXPECT_TRUE(root.findChild<QPushButton*>(u"printButton"_s)->toolTip().contains(u"зайти за чеком позже"_s));
        EXPECT_TRUE(root.findChild<QLabel*>(u"hintLabel"_s)->text().contains(u"«prescriptions»"_s));
        press(root, "cancelButton");
    });
    EXPECT_EQ(run(registeraction::showDocuments), EContext::GoOn);
    EXPECT_TRUE(cashier.isDone());
}

TEST_F(MissingPluginCommands, menu_disablesWhatIsRefusedAndSaysWhy)
{
    const auto entry = [](const char* name, control::EActionType type) {
        return FunctionKey{QLatin1StringView(name), QLatin1StringView(name), {}, type, {}};
    };
    MenuCommands menu(
        *till, {entry("subtotal", control::Subtotal), entry("payment", control::SubtotalAndPayment),
                entry("remove", registeraction::askToRemovePosition), entry("removeAtOnce", control::RemovePosition),
                entry("cancel", registeraction::askToCancelDocument), entry("cancelAtOnce", control::CancelDocument),
                entry("cancelFromMenu", control::CancelDocumentFromMenu), entry("suspend", registeraction::suspend)});
    menu.offer(controller.object);
    serve();
    for (const bool works : {true, false}) {
        if (!works) {
            idle();
        }
        cashier.onForm(u"menuForm"_s, [works](QWidget& root) {
            QStringList enabled;
            for (const auto* button : root.findChild<QWidget*>(u"entries"_s)->findChildren<QPushButton*>()) {
                EXPECT_EQ(!button->isEnabled(), button->text().endsWith(u"— не работает модуль «prescriptions»"_s));
                if (button->isEnabled()) {
                    enabled.append(button->objectName());
                }
            }
            EXPECT_EQ(enabled.size(), works ? 8 : 1);
            EXPECT_EQ(enabled.last(), u"suspend"_s);
            press(root, "cancelButton");
        });
        run(registeraction::showMenu, positionNumber(1));
        EXPECT_TRUE(cashier.isDone());
    }
}
