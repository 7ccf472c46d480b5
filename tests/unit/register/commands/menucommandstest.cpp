// SPDX-License-Identifier: MIT
#include "commandfixture.h"
#include "formanswer.h"
#include "registeraction.h"

using namespace Qt::StringLiterals;

class MenuCommandsTest : public CommandFixture
{
};

TEST_F(MenuCommandsTest, answeredWithAnEntryThatIsNotThere_stops)
{
    for (const int entry : {-1, 0, 99}) {
        cashier.onForm(u"menuForm"_s, [entry](QWidget&) { answerForm(u"entry"_s, entry); });
        EXPECT_EQ(run(registeraction::showMenu), EContext::Stop) << entry;
        EXPECT_TRUE(cashier.isDone());
    }
}
