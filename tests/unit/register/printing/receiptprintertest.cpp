// SPDX-License-Identifier: MIT
#include "receiptprinter.h"
#include "configured.h"
#include "dialogdouble.h"
#include "receiptlayout.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// The output of a program of poppler-utils about a file.
QString shown(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << qPrintable(process.errorString());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return QString::fromUtf8(process.readAllStandardOutput());
}

GoodsItem::Goods goods(const QString& name, double price, double packs)
{
    GoodsItem::Goods made;
    made.name = name;
    made.price = Kopecks::fromRoubles(price).value();
    made.quantity = packs;
    return made;
}

} // namespace

class ReceiptPrinterTest : public ::testing::Test
{
protected:
    ReceiptPrinterTest()
    {
        config.set(u"Register:data"_s, folder.path());
        QFile file(path(u"marks.json"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"positions": [{"tag": "paper", "receiptLines": [
            {"option": "share", "label": "Скидка", "form": "discount"},
            {"option": "issuer", "label": "Кто"},
            {"option": "doses", "label": "Доз", "form": "number"},
            {"option": "number", "label": "Номер"}]}]})");
        file.close();
        marks.load(file.fileName());
    }

    /// A closed sale with a position from an external document and one without.
    static QSharedPointer<Document> sale(int number = 7)
    {
        auto document = QSharedPointer<Document>::create(number, QDateTime({2024, 2, 29}, {12, 30}));
        const auto first = document->add(
            goods(u"Амоксидар, капсулы 500 мг №16, в упаковке с инструкцией и мерной ложкой"_s, 12.4, 2), {});
        first->setPrice(6.2);
        first->setTag(u"paper"_s);
        first->setSoftCheckId(u"rx-1"_s);
        first->setExtendedOptions(
            uR"({"share": 0.5, "issuer": "Поликлиника № 3 города Примерска и района", "doses": 2.5, "number": "4500-1"})"_s);
        document->add({}, {});
        document->remove(2);
        document->add(goods(u"Бинт <b>%1</b>"_s, 1234.5, 10), {});
        document->setEnding({.state = Document::State::Closed,
                             .finished = QDateTime({2024, 2, 29}, {12, 31}),
                             .payments = {Payment::cash(Kopecks{1'300'000})}});
        return document;
    }
    static QSharedPointer<Document> closedReturn()
    {
        auto document = Document::returnOf(*sale(), 9, QDateTime({2024, 3, 1}, {9, 0}));
        document->setEnding({.state = Document::State::Closed,
                             .finished = QDateTime({2024, 3, 1}, {9, 5}),
                             .payments = {Payment::cash(document->getSum())}});
        return document;
    }

    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList printed() const { return QDir(path(u"printed"_s)).entryList(QDir::Files | QDir::Hidden); }
    std::string text(const QString& number) const
    {
        return content(path(u"printed/%1.txt"_s.arg(number))).toStdString();
    }
    QStringList layout(const Document& document) const
    {
        return receiptlayout::text(receiptlayout::lines(document, marks)).split(u'\n');
    }
    static std::string fixture(const char* name)
    {
        return content(QString::fromUtf8(PRINTED_RECEIPTS "/") + QLatin1StringView(name)).toStdString();
    }

    QTemporaryDir folder;
    Configured config;
    PositionMarks marks;
    DialogDouble dialog;
};

TEST_F(ReceiptPrinterTest, sale_isPrintedAsTextLetterByLetter)
{
    config.set(u"Register:pharmacyName"_s, u"Аптека № 17"_s);
    config.set(u"Register:pharmacyAddress"_s,
               u"г. Примерск, ул. Липовая с очень длинным названием, дом 17, строение <2>"_s);
    config.set(u"Register:taxpayerNumber"_s, u"7700000017"_s);
    EXPECT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(*sale()));
    EXPECT_EQ(text(u"00000007"_s), fixture("printedsale.txt"));
    EXPECT_EQ(printed(), (QStringList{u"00000007.pdf"_s, u"00000007.txt"_s}));
    EXPECT_TRUE(dialog.messages().isEmpty());
}

TEST_F(ReceiptPrinterTest, mixedPaymentAndItsReturn_showEachMethodAndTheCard)
{
    const auto document = sale();
    CardOperation payment{.state = CardOperation::State::Approved,
                          .amount = Kopecks{234'500},
                          .reference = u"7-1"_s,
                          .card = u"**** 1234"_s,
                          .authorizationCode = u"A17"_s};
    document->setCardOperation(payment);
    Document::Ending ending = document->ending();
    ending.payments = {Payment::cash(Kopecks{1'001'740}), Payment::card(Kopecks{234'500})};
    document->setEnding(ending);
    const QStringList lines = layout(*document);
    const auto total = lines.indexOf(u"ИТОГО, BYN"_s + u"12 357,40"_s.rightJustified(30));
    ASSERT_GE(total, 0);
    EXPECT_EQ(lines.mid(total + 1),
              (QStringList{u"Получено наличными"_s + u"10 017,40"_s.rightJustified(22),
                           u"Картой"_s + u"2 345,00"_s.rightJustified(34), u"   Карта: **** 1234"_s,
                           u"   Код авторизации: A17"_s, u"Сдача"_s + u"5,00"_s.rightJustified(35), QString()}));

    const auto back = closedReturn();
    payment.kind = CardOperation::Kind::Refund;
    payment.payment = u"7-1"_s;
    back->setCardOperation(payment);
    ending = back->ending();
    ending.payments = {Payment::cash(Kopecks{1'001'240}), Payment::card(Kopecks{234'500})};
    back->setEnding(ending);
    EXPECT_EQ(layout(*back).mid(layout(*back).size() - 5),
              (QStringList{u"Выдано"_s + u"10 012,40"_s.rightJustified(34),
                           u"Возвращено на карту"_s + u"2 345,00"_s.rightJustified(21), u"   Карта: **** 1234"_s,
                           u"   Код авторизации: A17"_s, QString()}));
}

TEST_F(ReceiptPrinterTest, returnWithoutAConfiguredPharmacy_isPrintedAsTextLetterByLetter)
{
    EXPECT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(*closedReturn()));
    EXPECT_EQ(text(u"00000009"_s), fixture("printedreturn.txt"));
}

TEST_F(ReceiptPrinterTest, priceRaised_noBenefitIsPrinted)
{
    Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
    document.add(goods(u"x"_s, 1.0, 1), {})->setPrice(2.0);
    EXPECT_FALSE(layout(document).join(u'\n').contains(u"ьгот"_s));
}

TEST_F(ReceiptPrinterTest, lowestPriceInsteadOfTheShare_whatWasGivenIsPrintedWithoutAPercentage)
{
    Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
    const auto position = document.add(goods(u"x"_s, 12.4, 1), {});
    position->setTag(u"paper"_s);
    position->setExtendedOptions(uR"({"share": 0})"_s);
    position->setPrice(1.2);
    const QStringList lines = layout(document);
    const auto full = lines.indexOf(u"   Сумма без льготы                12,40"_s);
    ASSERT_GE(full, 0) << qPrintable(lines.join(u'\n'));
    EXPECT_EQ(lines.at(full + 1), u"   Льгота                         −11,20"_s);
    EXPECT_EQ(lines.at(full + 2), u"   1 × 1,20 =                       1,20"_s);
    EXPECT_FALSE(lines.join(u'\n').contains(u'%'));
}

TEST_F(ReceiptPrinterTest, shareThatLeftThePrice_noBenefitAndNoPercentageIsPrinted)
{
    Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
    const auto position = document.add(goods(u"x"_s, 12.4, 1), {});
    position->setTag(u"paper"_s);
    position->setExtendedOptions(uR"({"share": 0.9951})"_s);
    const QString printed = layout(document).join(u'\n');
    EXPECT_FALSE(printed.contains(u'%'));
    EXPECT_FALSE(printed.contains(u"ьгот"_s));
}

TEST_F(ReceiptPrinterTest, wordsOfTheHeadAndTheCurrency_comeFromTheConfiguration)
{
    config.set(u"Register:taxpayerNumber"_s, u"7700000017"_s);
    config.set(u"Register:taxpayerWord"_s, u"ИНН"_s);
    config.set(u"Register:currency"_s, u"руб."_s);
    const QStringList lines = layout(*sale());
    EXPECT_EQ(lines.first().trimmed(), u"ИНН 7700000017"_s);
    EXPECT_EQ(lines.filter(u"ИТОГО, руб.  "_s).size(), 1);
    config.set(u"Register:taxpayerNumber"_s, {});
    config.set(u"Register:currency"_s, {});
    EXPECT_FALSE(layout(*sale()).join(u'\n').contains(u"ИНН"_s));
    EXPECT_EQ(layout(*sale()).filter(u"ИТОГО  "_s).size(), 1);
}

TEST_F(ReceiptPrinterTest, positionRemoved_theOthersAreCountedFromOne)
{
    const auto document = sale();
    const QString second = document->positions().at(1)->getName().section(u' ', 0, 0);
    document->remove(1);
    const QStringList printed = layout(*document);
    EXPECT_EQ(printed.filter(u"1. "_s + second).size(), 1) << qPrintable(printed.join(u'\n'));
    EXPECT_TRUE(printed.filter(u"2. "_s + second).isEmpty());
}

TEST_F(ReceiptPrinterTest, benefit_isTheSavingOnAllPacksInKopecks)
{
    Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
    for (int i = 0; i < 3; ++i) {
        document.add(goods(u"x"_s, 0.3, 3), {})->setPrice(0.1);
    }
    const QStringList lines = layout(document);
    EXPECT_EQ(lines.filter(u"−0,60"_s).size(), 3);
    EXPECT_EQ(lines.filter(u"Льгота всего"_s), QStringList(u"Льгота всего                       −1,80"_s));
}

TEST_F(ReceiptPrinterTest, amountsOfAnySize_endAtTheRightEdge)
{
    Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
    document.add(goods(u"x"_s, 99'999'999.99, 999), {});
    document.add(goods(u"x"_s, 0.0, 0.5), {});
    document.setEnding({.state = Document::State::Closed, .payments = {Payment::cash(document.getSum())}});
    const QStringList lines = layout(document);
    EXPECT_TRUE(lines.contains(u"   999 × 99 999 999,99 ="_s));
    EXPECT_EQ(lines.filter(u"99 899 999 990,01"_s).size(), 3) << "sum, total, cash";
    EXPECT_TRUE(lines.contains(u"   0,5 × 0,00 =                     0,00"_s));
    for (const QString& amount : lines.filter(QRegularExpression(u",\\d\\d$"_s))) {
        EXPECT_EQ(amount.size(), 40) << qPrintable(amount);
    }
}

TEST_F(ReceiptPrinterTest, unusualNames_keepTheLayout)
{
    const QString names[] = {QString(10'000, QChar(0x416)),
                             u"a\nИТОГО 0,00\r\n\x1b@\t\u202e123\u2028z"_s,
                             u"שלום \u200fעולם"_s,
                             QString(100, QChar(0x4e2d)),
                             u"\U0001F48A"_s.repeated(60),
                             u"<img src=x><!-- %1 %n &"_s,
                             u"\n\x1b"_s,
                             {}};
    for (const QString& name : names) {
        Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
        document.add(goods(name, 5.0, 1), {});
        const QStringList lines = layout(document);
        const qsizetype price = lines.indexOf(u"   1 × 5,00 =                       5,00"_s);
        ASSERT_GT(price, 0);
        EXPECT_TRUE(lines.at(2).startsWith(u"1."_s)) << qPrintable(lines.at(2));
        for (qsizetype line = 3; line < price; ++line) {
            EXPECT_TRUE(lines.at(line).startsWith(u"   "_s)) << qPrintable(lines.at(line));
        }
        EXPECT_EQ(lines.filter(u"ИТОГО, BYN  "_s).size(), 1);
        for (const QString& line : lines) {
            EXPECT_LE(line.toUcs4().size(), 40);
            for (const QChar character : line) {
                EXPECT_FALSE(character.category() == QChar::Other_Control ||
                             character.category() == QChar::Other_Format);
            }
        }
        EXPECT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(document));
        EXPECT_TRUE(content(path(u"printed/00000001.pdf"_s)).startsWith("%PDF"));
    }
}

TEST_F(ReceiptPrinterTest, pdf_isAStripOfPaperWithTheSameText)
{
    config.set(u"Register:pharmacyName"_s, u"Аптека № 17"_s);
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(*sale()));
    const QString pdf = path(u"printed/00000007.pdf"_s);

    EXPECT_EQ(shown(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s}).simplified(),
              QString::fromStdString(text(u"00000007"_s)).simplified());

    const QString facts = shown(u"pdfinfo"_s, {pdf});
    const auto size = QRegularExpression(u"Page size: +([\\d.]+) x ([\\d.]+) pts"_s).match(facts);
    EXPECT_NEAR(size.captured(1).toDouble() / 72 * 25.4, 80.0, 0.5) << qPrintable(facts);
    EXPECT_NEAR(size.captured(2).toDouble() / 72 * 25.4, 24 * 3.6 + 8, 0.5) << qPrintable(facts);
    EXPECT_TRUE(facts.contains(QRegularExpression(u"Pages: +1\\n"_s))) << qPrintable(facts);
    EXPECT_TRUE(facts.contains(QRegularExpression(u"Title: +ЧЕК № 7\\n"_s))) << qPrintable(facts);

    const QStringList fonts = shown(u"pdffonts"_s, {pdf}).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(fonts.size(), 2 + 2) << "the book and the bold face, below two lines of head";
    for (const QString& font : fonts.mid(2)) {
        EXPECT_TRUE(font.contains(u"DejaVuSansMono"_s)) << qPrintable(font);
        EXPECT_TRUE(font.contains(QRegularExpression(u" yes (yes|no) +yes "_s))) << "embedded, with its letters";
    }
}

TEST_F(ReceiptPrinterTest, receiptLongerThanAPage_continuesOnTheNext)
{
    Document document(1, QDateTime({2024, 1, 1}, {0, 0}));
    for (int i = 0; i < 600; ++i) {
        document.add(goods(u"x"_s, 1.0, 1), {});
    }
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(document));
    const QString pdf = path(u"printed/00000001.pdf"_s);
    EXPECT_TRUE(shown(u"pdfinfo"_s, {pdf}).contains(QRegularExpression(u"Pages: +2\\n"_s)));
    const QString text = shown(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
    EXPECT_TRUE(text.contains(u"600. x"_s));
    EXPECT_TRUE(text.contains(QRegularExpression(u"ИТОГО, BYN +600,00"_s)));
}

TEST_F(ReceiptPrinterTest, files_areReadableByTheirOwnerOnly)
{
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(*sale()));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    for (const QString& file : printed()) {
        EXPECT_EQ(QFile::permissions(path(u"printed/"_s + file)) & others, 0) << qPrintable(file);
    }
}

TEST_F(ReceiptPrinterTest, printedTwice_theFilesAreReplaced)
{
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(*sale()));
    const auto other = QSharedPointer<Document>::create(7, QDateTime({2024, 1, 1}, {0, 0}));
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).printOrShow(*other));
    EXPECT_EQ(text(u"00000007"_s), layout(*other).join(u'\n').toStdString());
    EXPECT_EQ(printed().size(), 2);
}

TEST_F(ReceiptPrinterTest, printedAgain_theOriginalStaysBesideACopyThatSaysSo)
{
    const ReceiptPrinter printer(folder.path(), marks);
    EXPECT_EQ(printer.printAgainOrShow(*sale()), u"printed/00000007.pdf"_s) << "never printed before";
    const std::string original = text(u"00000007"_s);
    EXPECT_EQ(original.find("КОПИЯ"), std::string::npos);
    const QByteArray originalPdf = content(path(u"printed/00000007.pdf"_s));
    EXPECT_EQ(printer.printAgainOrShow(*sale()), u"printed/00000007-copy.pdf"_s);
    EXPECT_EQ(text(u"00000007-copy"_s), std::string(17, ' ').append("КОПИЯ\n") + original);
    EXPECT_EQ(text(u"00000007"_s), original);
    EXPECT_EQ(content(path(u"printed/00000007.pdf"_s)), originalPdf);
    EXPECT_EQ(printed().size(), 4);
}

TEST_F(ReceiptPrinterTest, diskFull_isShownWithAdviceAndTheFormerFilesStay)
{
    const ReceiptPrinter printer(folder.path(), marks);
    ASSERT_TRUE(printer.printOrShow(*sale()));
    const QByteArray formerText = content(path(u"printed/00000007.txt"_s));
    const QByteArray formerPdf = content(path(u"printed/00000007.pdf"_s));
    const auto longer = sale();
    longer->add(goods(QString(200, u'x'), 1.0, 1), {});
    for (const rlim_t room : {64, 4096}) { // neither file fits, only the text fits
        const SmallDisk smallDisk(room);
        EXPECT_FALSE(printer.printOrShow(room == 64 ? *longer : *sale()));
    }
    EXPECT_EQ(content(path(u"printed/00000007.txt"_s)), formerText);
    EXPECT_EQ(content(path(u"printed/00000007.pdf"_s)), formerPdf);
    EXPECT_EQ(printed().size(), 2);
    ASSERT_EQ(dialog.messages().size(), 2);
    EXPECT_EQ(dialog.messages().first().kind, Dialog::Error);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Чек № 7 не напечатан: "_s));
    EXPECT_TRUE(dialog.messages().first().text.contains(u"напечатайте его из списка документов"_s));
}

TEST_F(ReceiptPrinterTest, fileInPlaceOfTheFolder_isShown)
{
    QFile file(path(u"printed"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(ReceiptPrinter(folder.path(), marks).printOrShow(*sale()));
    EXPECT_EQ(dialog.messages().size(), 1);
}

class InterruptedPrinting : public ReceiptPrinterTest
{
protected:
    /// Saves a document whose closing has that place in the count. The clock is set back before each.
    void finish(int number, int closing, Document::State state = Document::State::Closed)
    {
        const auto document = sale(number);
        Document::Ending ending = document->ending();
        ending.closing = closing;
        ending.finished = QDateTime({2024, 2, 29}, {12, 59 - closing});
        ending.state = state;
        if (state == Document::State::Voided) {
            ending.voided = ending.finished;
        }
        document->setEnding(ending);
        ASSERT_TRUE(archive.saveOrShow(document));
    }
    void printInterrupted() const
    {
        const ReceiptPrinter printer(folder.path(), marks);
        if (const QSharedPointer<Document> document = printer.interrupted(archive)) {
            printer.printOrShow(*document);
        }
    }

    ArchiveFolder archive{folder.path()};
};

TEST_F(InterruptedPrinting, lastClosedDocumentLacksAFile_onlyItsReceiptIsPrinted)
{
    finish(1, 10);
    finish(2, 20);
    printInterrupted();
    const QStringList both{u"00000002.pdf"_s, u"00000002.txt"_s};
    EXPECT_EQ(printed(), both);
    for (const QString& file : both) {
        ASSERT_TRUE(QFile::remove(path(u"printed/"_s + file)));
        printInterrupted();
        EXPECT_EQ(printed(), both);
    }
}

TEST_F(InterruptedPrinting, documentWasSuspendedBefore_theCountOfClosingsDecidesNotItsNumber)
{
    finish(3, 40);
    finish(5, 30);
    printInterrupted();
    EXPECT_EQ(printed(), (QStringList{u"00000003.pdf"_s, u"00000003.txt"_s}));
}

TEST_F(InterruptedPrinting, cancelledAndVoidedDocuments_areNotPrinted)
{
    finish(1, 10);
    finish(2, 20, Document::State::Cancelled);
    finish(3, 30, Document::State::Voided);
    finish(4, 40, Document::State::Suspended);
    printInterrupted();
    EXPECT_EQ(printed(), (QStringList{u"00000001.pdf"_s, u"00000001.txt"_s}));
}

TEST_F(InterruptedPrinting, bothFilesExist_nothingIsPrinted)
{
    finish(1, 10);
    printInterrupted();
    QFile file(path(u"printed/00000001.txt"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("as printed");
    file.close();
    printInterrupted();
    EXPECT_EQ(text(u"00000001"_s), "as printed");
}

TEST_F(InterruptedPrinting, onlyACopyExists_theReceiptIsPrinted)
{
    finish(1, 10);
    printInterrupted();
    EXPECT_TRUE(ReceiptPrinter(folder.path(), marks).printAgainOrShow(*sale(1)));
    ASSERT_TRUE(QFile::remove(path(u"printed/00000001.txt"_s)));
    printInterrupted();
    EXPECT_TRUE(printed().contains(u"00000001.txt"_s));
}

TEST_F(InterruptedPrinting, nothingFinished_nothingIsPrinted)
{
    printInterrupted();
    EXPECT_TRUE(printed().isEmpty());
    EXPECT_TRUE(dialog.messages().isEmpty());
}
