// SPDX-License-Identifier: MIT
#include "documenttablemodel.h"

#include "registerstyle.h"

#include <QAbstractItemModelTester>
#include <QBrush>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

using enum Document::Returned;

const QDateTime opened(QDate(2026, 3, 2), QTime(9, 5));
const QDateTime finished(QDate(2026, 3, 2), QTime(9, 15));

DocumentTableModel::Pointer sale(int number, Document::State state)
{
    auto document = DocumentTableModel::Pointer::create(number, opened);
    GoodsItem::Goods goods;
    goods.name = u"Амоксидар"_s;
    goods.price = Kopecks{61725};
    goods.quantity = 2;
    document->add(goods, {});
    document->setEnding({.state = state, .finished = state == Document::State::Suspended ? QDateTime() : finished});
    return document;
}

DocumentTableModel::Pointer returnOf(int number, Document::State state)
{
    const auto document = Document::returnOf(*sale(7, Document::State::Closed), number, opened);
    document->setEnding({.state = state, .finished = finished});
    return document;
}

/// The document with a card operation whose answer was lost.
DocumentTableModel::Pointer unsettled(DocumentTableModel::Pointer document, CardOperation::Kind kind)
{
    document->setCardOperation({.kind = kind, .amount = Kopecks{480}, .reference = u"1-1"_s});
    return document;
}

} // namespace

class DocumentTableModelTest : public ::testing::Test
{
protected:
    void show(const QList<DocumentTableModel::Pointer>& documents, Document::Returned returned = Nothing)
    {
        model.show(documents, [returned](const Document&) { return returned; });
    }
    QString text(int row, int column) const { return model.index(row, column).data().toString(); }

    DocumentTableModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(DocumentTableModelTest, sale_isShownWithTimeCountAndSum)
{
    show({sale(7, Document::State::Closed)});
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
    DocumentTableModel::Pointer document;
    Document::Returned returned;
    const char* text;
    QColor colour;
};

class DocumentWord : public DocumentTableModelTest, public ::testing::WithParamInterface<Word>
{
};

TEST_P(DocumentWord, showsTheStateInWordsAndColour)
{
    DocumentTableModel::Pointer document = GetParam().document;
    if (GetParam().returned != Document::Returned::Nothing) {
        document->addReturn(9);
    }
    show({document}, GetParam().returned);
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
        Word{"suspended", sale(1, Document::State::Suspended), Nothing, "Отложен", QColor(0x8a, 0x5a, 0)},
        Word{"returnSuspended", returnOf(9, Document::State::Suspended), Nothing, "Возврат отложен",
             QColor(0x8a, 0x5a, 0)},
        Word{"suspendedUnsettled", unsettled(sale(1, Document::State::Suspended), CardOperation::Kind::Payment),
             Nothing, "Отложен, исход по карте неизвестен", QColor(0x8a, 0x5a, 0)},
        Word{"returnSuspendedUnsettled",
             unsettled(returnOf(9, Document::State::Suspended), CardOperation::Kind::Refund), Nothing,
             "Возврат отложен, исход по карте неизвестен", QColor(0x8a, 0x5a, 0)},
        Word{"sale", sale(1, Document::State::Closed), Nothing, "Продажа", {}},
        Word{"takenBack", sale(1, Document::State::Closed), Wholly, "Продажа, возвращена документом № 9", {}},
        Word{"partlyTakenBack", sale(1, Document::State::Closed), Partly, "Продажа, возвращена частично", {}},
        Word{"return", returnOf(9, Document::State::Closed), Nothing, "Возврат чека № 7", {}},
        Word{"cancelled", sale(1, Document::State::Cancelled), Nothing, "Отменён", RegisterColours().mutedText},
        Word{"returnCancelled", returnOf(9, Document::State::Cancelled), Nothing, "Возврат отменён",
             RegisterColours().mutedText},
        Word{"voided", sale(1, Document::State::Voided), Nothing, "Аннулирован", RegisterColours().mutedText}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(DocumentTableModelTest, suspended_showsWhenItWasOpened)
{
    show({sale(3, Document::State::Suspended)});
    EXPECT_EQ(text(0, DocumentTableModel::Time), u"02.03.2026 09:05"_s);
    EXPECT_EQ(model.index(0, DocumentTableModel::Time).data(Qt::ToolTipRole).toString(), u"Открыт 02.03.2026 09:05"_s);
}

TEST_F(DocumentTableModelTest, voided_showsWhenAndWhatItWasBefore)
{
    const QDateTime voided(QDate(2026, 3, 4), QTime(18, 40));
    const auto closed = sale(3, Document::State::Closed);
    closed->setEnding({.state = Document::State::Voided, .finished = finished, .voided = voided});
    const auto suspended = sale(2, Document::State::Suspended);
    suspended->setEnding({.state = Document::State::Voided, .finished = voided, .voided = voided});
    show({closed, suspended});
    const auto shown = [this](int row) {
        return model.index(row, DocumentTableModel::Time).data(Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(shown(0), u"Открыт 02.03.2026 09:05, завершён 02.03.2026 09:15, аннулирован 04.03.2026 18:40"_s);
    EXPECT_EQ(shown(1), u"Открыт 02.03.2026 09:05, аннулирован 04.03.2026 18:40"_s);
}

TEST_F(DocumentTableModelTest, otherDocumentsShown_rowsAreFoundByNumber)
{
    show({sale(9, Document::State::Closed), sale(7, Document::State::Closed)});
    EXPECT_EQ(model.rowOf(7), 1);
    EXPECT_EQ(model.document(1)->getNumber(), 7);
    EXPECT_EQ(model.rowOf(8), -1);
    show({});
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.rowOf(7), -1);
}

TEST_F(DocumentTableModelTest, everyVisibleColumn_hasACaption)
{
    for (int column = 0; column < DocumentTableModel::SearchText; ++column) {
        EXPECT_FALSE(model.headerData(column, Qt::Horizontal).toString().isEmpty()) << column;
    }
}

TEST_F(DocumentTableModelTest, olderOnesAdded_areInTheirPlacesOnce)
{
    show({sale(9, Document::State::Closed), sale(7, Document::State::Closed)});
    int asked = 0;
    model.add({sale(8, Document::State::Closed), sale(7, Document::State::Closed), sale(2, Document::State::Closed)},
              [&asked](const Document&) {
                  ++asked;
                  return Document::Returned::Partly;
              });
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_EQ(text(0, DocumentTableModel::Number), u"9"_s);
    EXPECT_EQ(text(1, DocumentTableModel::Number), u"8"_s);
    EXPECT_EQ(text(2, DocumentTableModel::Number), u"7"_s);
    EXPECT_EQ(text(3, DocumentTableModel::Number), u"2"_s);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(text(1, DocumentTableModel::State), u"Продажа, возвращена частично"_s);
    EXPECT_EQ(text(2, DocumentTableModel::State), u"Продажа"_s);
}

TEST_F(DocumentTableModelTest, days_areThoseOfOpeningAndFinishing)
{
    const auto document = sale(7, Document::State::Closed);
    document->setEnding({.state = Document::State::Closed, .finished = finished.addDays(1)});
    show({document});
    EXPECT_EQ(text(0, DocumentTableModel::Days), u"02.03.2026 03.03.2026"_s);
}
