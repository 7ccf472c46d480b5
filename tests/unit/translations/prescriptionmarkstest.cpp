// SPDX-License-Identifier: MIT
// What the register shows and prints of a prescription's position in another language.
#include "configured.h"
#include "messagecatalogues.h"
#include "positionmarks.h"
#include "positiontablemodel.h"
#include "receiptlayout.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString resources = QString::fromUtf8(PRESCRIPTION_RESOURCES);
const QRegularExpression russian(u"[А-Яа-яЁё№]"_s);

class PrescriptionMarks : public ::testing::TestWithParam<const char*>
{
protected:
    PrescriptionMarks()
    {
        config.set(u"Language:interface"_s, u"en"_s);
        marks.load(resources + u"/positionmarks.json"_s);
        catalogues.load(u":/translations/pharmacyregister"_s);
        catalogues.load(resources + u"/electronicprescription"_s);
        const auto position = document->add(goods(), {});
        position->setTag(u"prescription"_s);
        position->setPrice(5.0);
        position->setExtendedOptions(
            u"{%1 \"sumFactor\": 0.5, \"doseQuantity\": 2.5, \"organization\": \"Clinic\", \"serialNumber\": \"4500-1\"}"_s
                .arg(QLatin1StringView(GetParam())));
        document->setPluginValue(u"ElectronicPrescriptionService"_s, u"cardNumber"_s, u"1100"_s);
    }

    static GoodsItem::Goods goods()
    {
        GoodsItem::Goods made;
        made.name = u"Amoxidar"_s;
        made.price = Kopecks{1000};
        made.quantity = 1;
        return made;
    }

    Configured config;
    MessageCatalogues catalogues;
    PositionMarks marks;
    QSharedPointer<Document> document = QSharedPointer<Document>::create(7, QDateTime({2024, 2, 29}, {12, 30}));
};

std::string nameOfInstance(const ::testing::TestParamInfo<const char*>& instance)
{
    const char* const states[] = {"notRegistered", "registered", "dispenseCancelled"};
    return states[instance.index];
}

} // namespace

TEST_P(PrescriptionMarks, english_theScreenShowsNoRussian)
{
    PositionTableModel model(marks);
    model.refresh(document);
    const auto cell = [&model](int column, int role) { return model.index(0, column).data(role).toString(); };
    for (const int column : {PositionTableModel::Mark, PositionTableModel::State}) {
        for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole), int(Qt::AccessibleTextRole)}) {
            EXPECT_FALSE(cell(column, role).contains(russian)) << cell(column, role).toStdString();
        }
        EXPECT_FALSE(cell(column, Qt::DisplayRole).isEmpty()) << column;
    }
    EXPECT_EQ(cell(PositionTableModel::Mark, Qt::AccessibleTextRole), u"Electronic prescription"_s);
    EXPECT_EQ(marks.documentText(*document), u"Card: 1100"_s);
    EXPECT_EQ(marks.origin(*document->positions().first()), u"for a prescription"_s);
    for (const QString& undoing : marks.undoings(document->positions())) {
        EXPECT_EQ(undoing, u"The dispense will be cancelled."_s);
    }
}

TEST_P(PrescriptionMarks, english_theReceiptShowsNoRussian)
{
    const QString receipt = receiptlayout::text(receiptlayout::lines(*document, marks));
    EXPECT_FALSE(receipt.contains(russian)) << receipt.toStdString();
    for (const char* line :
         {"Prescription benefit: 50", "Doses dispensed: 2,5", "Organization: Clinic", "Prescription: 4500-1"}) {
        EXPECT_TRUE(receipt.contains(QLatin1StringView(line))) << line << '\n' << receipt.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(, PrescriptionMarks,
                         ::testing::Values("", "\"status\": \"dispensed\",", "\"status\": \"canceled\","),
                         nameOfInstance);
