// SPDX-License-Identifier: MIT
#include "documenttablemodel.h"

#include "registerstyle.h"

#include <QAbstractItemModelTester>
#include <QBrush>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QDateTime opened(QDate(2026, 3, 2), QTime(9, 5));
const QDateTime finished(QDate(2026, 3, 2), QTime(9, 15));

DocumentTableModel::Document sale(int number, Receipt::State state)
{
    auto document = DocumentTableModel::Document::create(number, opened);
    GoodsItem::Goods goods;
    goods.name = u"Амоксидар"_s;
    goods.price = 617.25;
    goods.quantity = 2;
    document->add(goods, {});
    document->setEnding({.state = state, .finished = state == Receipt::State::PutAside ? QDateTime() : finished});
    return document;
}

DocumentTableModel::Document takeBack(int number, Receipt::State state)
{
    const auto document = Receipt::cancelling(*sale(7, Receipt::State::Closed), number, opened);
    document->setEnding({.state = state, .finished = finished});
    return document;
}

} // namespace

class DocumentTableModelTest : public ::testing::Test
{
protected:
    void show(const QList<DocumentTableModel::Document>& documents, bool takenBack = false)
    {
        model.show(documents, [takenBack](const Receipt&) { return takenBack; });
    }
    QString text(int row, int column) const { return model.index(row, column).data().toString(); }

    DocumentTableModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(DocumentTableModelTest, sale_isShownWithTimeCountAndSum)
{
    show({sale(7, Receipt::State::Closed)});
    EXPECT_EQ(text(0, DocumentTableModel::Number), u"7"_s);
    EXPECT_EQ(text(0, DocumentTableModel::State), u"Продажа"_s);
    EXPECT_EQ(text(0, DocumentTableModel::Time), u"02.03.2026 09:15"_s);
    EXPECT_EQ(text(0, DocumentTableModel::Positions), u"1"_s);
    EXPECT_EQ(text(0, DocumentTableModel::Sum), u"1"_s + QChar(QChar::Nbsp) + u"234,50"_s);
    EXPECT_EQ(text(0, DocumentTableModel::SearchText), u"7\nПродажа\nАмоксидар"_s);
    EXPECT_EQ(model.index(0, DocumentTableModel::Time).data(Qt::ToolTipRole).toString(),
              u"Открыт 02.03.2026 09:05, завершён 02.03.2026 09:15"_s);
}

struct Word {
    const char* name;
    DocumentTableModel::Document document;
    bool takenBack;
    const char* text;
    QColor colour;
};

class DocumentWord : public DocumentTableModelTest, public ::testing::WithParamInterface<Word>
{
};

TEST_P(DocumentWord, tellsTheStateInWordsAndColour)
{
    DocumentTableModel::Document document = GetParam().document;
    if (GetParam().takenBack) {
        document->setTakenBackBy(9);
    }
    show({document}, GetParam().takenBack);
    EXPECT_EQ(text(0, DocumentTableModel::State), QString::fromUtf8(GetParam().text));
    const QVariant colour = model.index(0, DocumentTableModel::State).data(Qt::ForegroundRole);
    EXPECT_EQ(colour.isValid() ? colour.value<QBrush>().color() : QColor(), GetParam().colour);
    if (GetParam().colour.isValid()) {
        EXPECT_GE(RegisterColours::contrast(GetParam().colour, RegisterColours().panel), 4.5);
    }
}

INSTANTIATE_TEST_SUITE_P(
    , DocumentWord,
    ::testing::Values(
        Word{"putAside", sale(1, Receipt::State::PutAside), false, "Отложен", QColor(0x8a, 0x5a, 0)},
        Word{"sale", sale(1, Receipt::State::Closed), false, "Продажа", {}},
        Word{"takenBack", sale(1, Receipt::State::Closed), true, "Продажа, возвращена документом № 9", {}},
        Word{"takeBack", takeBack(9, Receipt::State::Closed), false, "Возврат чека № 7", {}},
        Word{"cancelled", sale(1, Receipt::State::Cancelled), false, "Отменён", RegisterColours().mutedText},
        Word{"takeBackCancelled", takeBack(9, Receipt::State::Cancelled), false, "Возврат отменён",
             RegisterColours().mutedText},
        Word{"annulled", sale(1, Receipt::State::Annulled), false, "Аннулирован", RegisterColours().mutedText}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(DocumentTableModelTest, putAside_tellsWhenItWasOpened)
{
    show({sale(3, Receipt::State::PutAside)});
    EXPECT_EQ(text(0, DocumentTableModel::Time), u"02.03.2026 09:05"_s);
    EXPECT_EQ(model.index(0, DocumentTableModel::Time).data(Qt::ToolTipRole).toString(), u"Открыт 02.03.2026 09:05"_s);
}

TEST_F(DocumentTableModelTest, annulled_tellsWhenAndWhatItWasBefore)
{
    const QDateTime annulled(QDate(2026, 3, 4), QTime(18, 40));
    const auto closed = sale(3, Receipt::State::Closed);
    closed->setEnding({.state = Receipt::State::Annulled, .finished = finished, .annulled = annulled});
    const auto putAside = sale(2, Receipt::State::PutAside);
    putAside->setEnding({.state = Receipt::State::Annulled, .finished = annulled, .annulled = annulled});
    show({closed, putAside});
    const auto told = [this](int row) {
        return model.index(row, DocumentTableModel::Time).data(Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(told(0), u"Открыт 02.03.2026 09:05, завершён 02.03.2026 09:15, аннулирован 04.03.2026 18:40"_s);
    EXPECT_EQ(told(1), u"Открыт 02.03.2026 09:05, аннулирован 04.03.2026 18:40"_s);
}

TEST_F(DocumentTableModelTest, shownAnew_rowsAreFoundByNumber)
{
    show({sale(9, Receipt::State::Closed), sale(7, Receipt::State::Closed)});
    EXPECT_EQ(model.rowOf(7), 1);
    EXPECT_EQ(model.document(1)->getNumber(), 7);
    EXPECT_EQ(model.rowOf(8), -1);
    show({});
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.rowOf(7), -1);
}

TEST_F(DocumentTableModelTest, everyColumnThatIsShown_hasACaption)
{
    for (int column = 0; column < DocumentTableModel::SearchText; ++column) {
        EXPECT_FALSE(model.headerData(column, Qt::Horizontal).toString().isEmpty()) << column;
    }
}
