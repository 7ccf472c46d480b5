// SPDX-License-Identifier: MIT
#include "commandfixture.h"
#include "dialogdouble.h"
#include "formanswer.h"
#include "registeraction.h"

using namespace Qt::StringLiterals;

class MenuCommandsTest : public CommandFixture
{
};

TEST_F(MenuCommandsTest, keyExplained_namesTheKeyAndWhatIsMissing)
{
    const QVariantMap key{{u"text"_s, u"Рецепт %1"_s}};
    const DialogDouble dialog;
    run(registeraction::explainKey, key);
    till->open();
    run(registeraction::explainKey, key);
    ASSERT_EQ(dialog.messages().size(), 2);
    EXPECT_TRUE(dialog.messages().at(0).text.startsWith(u"«Рецепт %1» работает при открытом чеке"_s));
    EXPECT_TRUE(dialog.messages().at(1).text.startsWith(u"«Рецепт %1» сейчас недоступно"_s));
}

TEST_F(MenuCommandsTest, answeredWithAnEntryThatIsNotThere_stops)
{
    for (const int entry : {-1, 0, 99}) {
        cashier.onForm(u"menuForm"_s, [entry](QWidget&) { answerForm(u"entry"_s, entry); });
        EXPECT_EQ(run(registeraction::showMenu), EContext::Stop) << entry;
        EXPECT_TRUE(cashier.isDone());
    }
}
