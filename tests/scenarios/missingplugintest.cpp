// SPDX-License-Identifier: MIT
// Documents with prescriptions, in a register whose plug-in is missing or switched off, and then there again.

#include "cashiersteps.h"
#include "pharmacy.h"

#include <QDir>

namespace
{

constexpr const char* why = "ведёт модуль «electronicprescription», а он не работает";

/// Shows the sales screen with nothing open after the menu was left.
const QByteArray leavesTheMenu = R"({"key": "Esc"}, {"visible": false, "in": "menuForm"})";

/// How the plug-in is absent.
struct Absence {
    const char* name;
    bool isSwitchedOff; ///< else its library is missing
    const char* shown;  ///< steps that read what the status line says of it

    friend std::ostream& operator<<(std::ostream& stream, const Absence& absence) { return stream << absence.name; }
};

class MissingPlugin : public Pharmacy, public ::testing::WithParamInterface<Absence>
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        leaveOpen("three-prescriptions.json");
    }

    void playWithout(const QByteArrayList& steps)
    {
        configure("plugins:pharmacy", GetParam().isSwitchedOff ? "false" : "true");
        QStringList options;
        if (!GetParam().isSwitchedOff) {
            const QString empty = dataFolder() + "/no-plugins";
            ASSERT_TRUE(QDir().mkpath(empty));
            options = QStringList{"--plugins", empty};
        }
        registry.forgetRequests();
        expectPlayed(playSteps(steps, options));
        EXPECT_EQ(registry.requestedPaths(), QStringList());
    }
    void playWith(const QByteArrayList& steps)
    {
        configure("plugins:pharmacy", "true");
        expectPlayed(playSteps(steps));
    }
};

TEST_P(MissingPlugin, saleOpen_isOnlySuspendedAndResumed_andIsSoldWhenThePluginIsBack)
{
    const QJsonArray served = savedPositions();
    playWithout({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", why), GetParam().shown,
                 cashier::tries(R"({"key": "F12"})", why),
                 cashier::tries(R"({"row": 1, "in": "receiptTable"}, {"key": "F8"})", why),
                 cashier::tries(R"({"key": "F9"})", why),
                 R"({"key": "F10"}, {"wait": "menuForm"}, {"enabled": false, "in": "cancelReceiptEntry"},
                    {"contains": "не работает модуль", "in": "cancelReceiptEntry"},
                    {"enabled": true, "in": "putAsideEntry"})",
                 leavesTheMenu, R"({"visible": false, "in": "paymentPanel"})", cashier::suspends,
                 cashier::tries(R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "4"}, {"wait": "inputLineEdit"},
                                   {"type": "1"}, {"key": "Return"})",
                                why),
                 cashier::resumes, cashier::tries(R"({"key": "F6"})", why)});
    EXPECT_EQ(savedPositions(), served);

    playWith({cashier::findsTheDocument, cashier::removesTheFirst, cashier::subtotal, cashier::pays});
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(registeredBy(finished(1)).size(), 2);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_P(MissingPlugin, saleClosed_isNeitherReturnedNorVoided_andIsVoidedWhenThePluginIsBack)
{
    playWith({cashier::findsTheDocument, cashier::subtotal, cashier::pays});
    const QJsonObject sold = finished(1);
    playWithout({cashier::tries(cashier::opensTheReturn, why),
                 cashier::tries(R"({"key": "F10"}, {"wait": "menuForm"}, {"key": "4"}, {"wait": "inputLineEdit"},
                                   {"type": "1"}, {"key": "Return"})",
                                why),
                 cashier::opensTheDocuments,
                 R"({"row": 0, "in": "documentTable"}, {"enabled": false, "in": "annulButton"},
                    {"enabled": false, "in": "takeBackButton"},
                    {"contains": "«electronicprescription»", "in": "hintLabel"},
                    {"screenshot": "missing-plugin"}, {"key": "Esc"})"});
    EXPECT_EQ(finished(1), sold);
    EXPECT_EQ(validDispenses(), registeredBy(sold));

    playWith({cashier::isIdle, cashier::voids, cashier::isIdle});
    EXPECT_EQ(finished(1)["state"].toString(), "annulled");
    EXPECT_EQ(validDispenses(), QStringList());
}

TEST_P(MissingPlugin, closedAndNotPrinted_waitsForThePluginAndIsPrintedWhenItIsBack)
{
    playWith({cashier::findsTheDocument, cashier::subtotal, cashier::pays});
    const std::string receipt = printed(1);
    ASSERT_NE(receipt.find("Отпущено доз"), std::string::npos) << receipt;
    ASSERT_TRUE(QDir(dataFolder() + "/printed").removeRecursively());
    playWithout(
        {R"({"wait": "messageForm"}, {"contains": "Чек № 1 пока не печатается: не работает модуль", "in": "messageLabel"},
                    {"screenshot": "receipt-without-plugin"}, {"key": "Return"}, {"visible": false, "in": "messageForm"})",
         cashier::opensTheDocuments,
         R"({"row": 0, "in": "documentTable"}, {"enabled": false, "in": "printButton"}, {"key": "Esc"})"});
    EXPECT_EQ(printed(1), "");

    playWith({cashier::isIdle});
    EXPECT_EQ(printed(1), receipt);
}

TEST_P(MissingPlugin, returnOpen_isOnlySuspended_andIsPaidOutWhenThePluginIsBack)
{
    playWith({cashier::findsTheDocument, cashier::subtotal, cashier::pays, cashier::opensTheWholeReturn,
              cashier::findsTheDocument});
    playWithout({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", why),
                 cashier::tries(R"({"key": "F12"})", why), cashier::tries(R"({"key": "F9"})", why), cashier::suspends,
                 R"({"contains": "Возврат № 2 отложен", "in": "statusMessageLabel"})",
                 cashier::tries(cashier::opensTheReturn, "начат и отложен")});
    EXPECT_EQ(suspended(2)["type"].toInt(), 25);
    EXPECT_EQ(validDispenses().size(), 3);

    playWith({cashier::isIdle, cashier::resumes, cashier::subtotal, cashier::paysOut});
    EXPECT_EQ(finished(2)["state"].toString(), "closed");
    EXPECT_EQ(validDispenses(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(, MissingPlugin,
                         ::testing::Values(Absence{"libraryMissing", false,
                                                   R"({"expect": "Модулей нет", "in": "pluginStateLabel"},
                                 {"contains": "«Электронный рецепт» не работает: нет модуля.",
                                  "in": "statusMessageLabel"})"},
                                           Absence{"switchedOff", true,
                                                   R"({"expect": "Модулей нет", "in": "pluginStateLabel"},
                                 {"contains": "«Электронный рецепт» не работает: нет модуля. Модуль не подключён: electronicprescription: выключен",
                                  "in": "statusMessageLabel"},
                                 {"click": "statusMoreButton"}, {"contains": "Подробности в журнале, в папке /",
                                  "in": "messageLabel"}, {"key": "Return"},
                                 {"visible": false, "in": "messageForm"})"}),
                         [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
