// SPDX-License-Identifier: MIT
// How often the cashier presses or taps for one prescription.
#include "pharmacy.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{

/// Keys pressed and characters typed, or clicks. A card or a barcode that is scanned takes none.
int handsIn(const QByteArrayList& steps)
{
    int count = 0;
    for (const QJsonValue& step : QJsonDocument::fromJson('[' + steps.join(',') + ']').array()) {
        const QJsonObject act = step.toObject();
        count += act.contains("key"_L1) || act.contains("click"_L1) ? 1 : int(act.value("type"_L1).toString().size());
    }
    return count;
}

/// Serves a prescription for 30 doses. Neither the choice of the goods nor that of the packs needs a key: the wanted
/// goods are offered.
struct Serving {
    QByteArrayList beforeTheCard;
    QByteArrayList cardToPosition;
    QByteArrayList positionToClosedReceipt;
};

const Serving byKeyboard{
    .beforeTheCard = {R"({"key": "F2"})", R"({"key": "F5"})", R"({"wait": "inputLineEdit"})",
                      R"({"scan": "1100000000000002"})", R"({"wait": "electronicPrescriptionsTableView"})",
                      R"({"row": 1, "in": "electronicPrescriptionsTableView"})"},
    .cardToPosition = {R"({"key": "Return"})", R"({"wait": "chooseButton"})", R"({"key": "Return"})",
                       R"({"wait": "goodsTable"})", R"({"key": "Return"})", R"({"wait": "inputLineEdit"})",
                       R"({"type": "30"})", R"({"key": "Return"})", R"({"wait": "completeDispenseButton"})",
                       R"({"key": "Right"})", R"({"key": "Return"})", R"({"contains": "ЭР", "in": "receiptTable"})"},
    .positionToClosedReceipt = {R"({"key": "F12"})", R"({"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"})",
                                R"({"key": "Return"})", R"({"contains": "закрыт", "in": "statusMessageLabel"})"},
};

const Serving byTouch{
    .beforeTheCard = {R"({"click": "newReceiptKey"})", R"({"click": "prescriptionKey"})",
                      R"({"wait": "inputLineEdit"})", R"({"scan": "1100000000000002"})",
                      R"({"wait": "electronicPrescriptionsTableView"})",
                      R"({"row": 1, "in": "electronicPrescriptionsTableView"})"},
    .cardToPosition = {R"({"click": "okButton"})", R"({"click": "chooseButton"})", R"({"wait": "goodsTable"})",
                       R"({"click": "okButton"})", R"({"wait": "inputLineEdit"})", R"({"click": "key_3"})",
                       R"({"click": "key_0"})", R"({"click": "okButton"})", R"({"click": "completeDispenseButton"})",
                       R"({"contains": "ЭР", "in": "receiptTable"})"},
    .positionToClosedReceipt = {R"({"click": "paymentKey"})", R"({"expect": "К ОПЛАТЕ", "in": "paymentCaptionLabel"})",
                                R"({"click": "payButton"})", R"({"contains": "закрыт", "in": "statusMessageLabel"})"},
};

} // namespace

class Hands : public Pharmacy
{
protected:
    void expectServed(const Serving& serving, const QStringList& options)
    {
        expectPlayed(
            playSteps(serving.beforeTheCard + serving.cardToPosition + serving.positionToClosedReceipt, options));
        EXPECT_EQ(optionsOf(finished(1).value("positions"_L1).toArray().at(0).toObject()).value("doseQuantity"_L1), 30);
        EXPECT_LE(handsIn(serving.cardToPosition), 8);
        EXPECT_LE(handsIn(serving.positionToClosedReceipt), 2);
    }
};

TEST_F(Hands, prescriptionByKeyboard_takesEightKeysToThePositionAndTwoMoreToTheClosedReceipt)
{
    expectServed(byKeyboard, {});
}

TEST_F(Hands, prescriptionByTouch_takesNoMoreTaps)
{
    expectServed(byTouch, {u"--touch"_s});
}
