// SPDX-License-Identifier: MIT
#include "receiptprinter.h"
#include "configured.h"
#include "receiptlayout.h"
#include "shownmessages.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// What a program of poppler tells of a file.
QString told(const QString& program, const QStringList& arguments)
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
    made.price = price;
    made.quantity = packs;
    return made;
}

} // namespace

class ReceiptPrinterTest : public ::testing::Test
{
protected:
    ReceiptPrinterTest()
    {
        config.set(QStringLiteral("Register:data"), folder.path());
        QFile file(path(QStringLiteral("marks.json")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"positions": [{"tag": "paper", "receiptLines": [
            {"option": "share", "label": "Скидка", "form": "discount"},
            {"option": "issuer", "label": "Кто"},
            {"option": "number", "label": "Номер"}]}]})");
        file.close();
        marks.load(file.fileName());
    }

    /// A paid sale with a position from a foreign paper and one of ordinary goods.
    static QSharedPointer<Receipt> sale(int number = 7)
    {
        auto receipt = QSharedPointer<Receipt>::create(number, QDateTime({2024, 2, 29}, {12, 30}));
        const auto first = receipt->add(
            goods(QStringLiteral("Амоксидар, капсулы 500 мг №16, в упаковке с инструкцией и мерной ложкой"), 12.4, 2),
            {});
        first->setPrice(6.2);
        first->setTag(QStringLiteral("paper"));
        first->setSoftCheckId(QStringLiteral("rx-1"));
        first->setExtendedOptions(QStringLiteral(
            R"({"share": 0.5, "issuer": "Поликлиника № 3 города Примерска и района", "number": "4500-1"})"));
        receipt->add({}, {});
        receipt->remove(2);
        receipt->add(goods(QStringLiteral("Бинт <b>%1</b>"), 1234.5, 10), {});
        receipt->setEnding(
            {.state = Receipt::State::Closed, .finished = QDateTime({2024, 2, 29}, {12, 31}), .received = 1'300'000});
        return receipt;
    }
    static QSharedPointer<Receipt> takeBack()
    {
        auto document = Receipt::cancelling(*sale(), 9, QDateTime({2024, 3, 1}, {9, 0}));
        document->setEnding({.state = Receipt::State::Closed,
                             .finished = QDateTime({2024, 3, 1}, {9, 5}),
                             .received = document->getSum()});
        return document;
    }

    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList printed() const { return QDir(path(QStringLiteral("printed"))).entryList(QDir::Files | QDir::Hidden); }
    std::string text(const QString& number) const
    {
        return content(path(QStringLiteral("printed/%1.txt").arg(number))).toStdString();
    }
    QStringList layout(const Receipt& receipt) const
    {
        return receiptlayout::text(receiptlayout::lines(receipt, marks)).split(QLatin1Char('\n'));
    }
    static std::string fixture(const char* name)
    {
        return content(QStringLiteral(PRINTED_RECEIPTS "/") + QLatin1String(name)).toStdString();
    }

    QTemporaryDir folder;
    Configured config;
    PositionMarks marks;
    ShownMessages messages;
};

TEST_F(ReceiptPrinterTest, sale_isPrintedAsTextLetterByLetter)
{
    config.set(QStringLiteral("Register:pharmacyName"), QStringLiteral("Аптека № 17"));
    config.set(QStringLiteral("Register:pharmacyAddress"),
               QStringLiteral("г. Примерск, ул. Липовая с очень длинным названием, дом 17, строение <2>"));
    config.set(QStringLiteral("Register:taxpayerNumber"), QStringLiteral("7700000017"));
    EXPECT_TRUE(ReceiptPrinter(folder.path(), marks).print(*sale()));
    EXPECT_EQ(text(QStringLiteral("00000007")), fixture("printedsale.txt"));
    EXPECT_EQ(printed(), (QStringList{QStringLiteral("00000007.pdf"), QStringLiteral("00000007.txt")}));
    EXPECT_TRUE(messages.all().isEmpty());
}

TEST_F(ReceiptPrinterTest, takeBackWithoutAConfiguredPharmacy_isPrintedAsTextLetterByLetter)
{
    EXPECT_TRUE(ReceiptPrinter(folder.path(), marks).print(*takeBack()));
    EXPECT_EQ(text(QStringLiteral("00000009")), fixture("printedtakeback.txt"));
}

TEST_F(ReceiptPrinterTest, priceRaised_isNoBenefit)
{
    Receipt receipt(1, QDateTime({2024, 1, 1}, {0, 0}));
    receipt.add(goods(QStringLiteral("x"), 1.0, 1), {})->setPrice(2.0);
    EXPECT_FALSE(layout(receipt).join(u'\n').contains(QStringLiteral("ьгот")));
}

TEST_F(ReceiptPrinterTest, benefit_isCountedInKopecksOverAllPacks)
{
    Receipt receipt(1, QDateTime({2024, 1, 1}, {0, 0}));
    for (int i = 0; i < 3; ++i)
        receipt.add(goods(QStringLiteral("x"), 0.3, 3), {})->setPrice(0.1);
    const QStringList lines = layout(receipt);
    EXPECT_EQ(lines.filter(QStringLiteral("−0,60")).size(), 3);
    EXPECT_EQ(lines.filter(QStringLiteral("Льгота всего")),
              QStringList(QStringLiteral("Льгота всего                        1,80")));
}

TEST_F(ReceiptPrinterTest, amountsOfAnySize_endAtTheRightEdge)
{
    Receipt receipt(1, QDateTime({2024, 1, 1}, {0, 0}));
    receipt.add(goods(QStringLiteral("x"), 99'999'999.99, 999), {});
    receipt.add(goods(QStringLiteral("x"), 0.0, 0.5), {});
    receipt.setEnding({.state = Receipt::State::Closed, .received = receipt.getSum()});
    const QStringList lines = layout(receipt);
    EXPECT_TRUE(lines.contains(QStringLiteral("   999 × 99 999 999,99 =")));
    EXPECT_EQ(lines.filter(QStringLiteral("99 899 999 990,01")).size(), 3) << "sum, total, cash";
    EXPECT_TRUE(lines.contains(QStringLiteral("   0,5 × 0,00 =                     0,00")));
    for (const QString& amount : lines.filter(QRegularExpression(QStringLiteral(",\\d\\d$"))))
        EXPECT_EQ(amount.size(), 40) << qPrintable(amount);
}

TEST_F(ReceiptPrinterTest, namesOfAnyKind_leaveTheLayoutAsItIs)
{
    const QString names[] = {QString(10'000, QChar(0x416)),
                             QStringLiteral("a\nИТОГО 0,00\r\n\x1b@\t\u202e123\u2028z"),
                             QStringLiteral("שלום \u200fעולם"),
                             QString(100, QChar(0x4e2d)),
                             QStringLiteral("\U0001F48A").repeated(60),
                             QStringLiteral("<img src=x><!-- %1 %n &"),
                             QStringLiteral("\n\x1b"),
                             {}};
    for (const QString& name : names) {
        Receipt receipt(1, QDateTime({2024, 1, 1}, {0, 0}));
        receipt.add(goods(name, 5.0, 1), {});
        const QStringList lines = layout(receipt);
        const qsizetype price = lines.indexOf(QStringLiteral("   1 × 5,00 =                       5,00"));
        ASSERT_GT(price, 0);
        EXPECT_TRUE(lines.at(2).startsWith(QStringLiteral("1."))) << qPrintable(lines.at(2));
        for (qsizetype line = 3; line < price; ++line)
            EXPECT_TRUE(lines.at(line).startsWith(QStringLiteral("   "))) << qPrintable(lines.at(line));
        EXPECT_EQ(lines.filter(QStringLiteral("ИТОГО  ")).size(), 1);
        for (const QString& line : lines) {
            EXPECT_LE(line.toUcs4().size(), 40);
            for (const QChar character : line)
                EXPECT_FALSE(character.category() == QChar::Other_Control ||
                             character.category() == QChar::Other_Format);
        }
        EXPECT_TRUE(ReceiptPrinter(folder.path(), marks).print(receipt));
        EXPECT_TRUE(content(path(QStringLiteral("printed/00000001.pdf"))).startsWith("%PDF"));
    }
}

TEST_F(ReceiptPrinterTest, pdf_isAStripOfPaperThatHoldsTheSameText)
{
    config.set(QStringLiteral("Register:pharmacyName"), QStringLiteral("Аптека № 17"));
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).print(*sale()));
    const QString pdf = path(QStringLiteral("printed/00000007.pdf"));

    EXPECT_EQ(told(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")}).simplified(),
              QString::fromStdString(text(QStringLiteral("00000007"))).simplified());

    const QString facts = told(QStringLiteral("pdfinfo"), {pdf});
    const auto size = QRegularExpression(QStringLiteral("Page size: +([\\d.]+) x ([\\d.]+) pts")).match(facts);
    EXPECT_NEAR(size.captured(1).toDouble() / 72 * 25.4, 80.0, 0.5) << qPrintable(facts);
    EXPECT_NEAR(size.captured(2).toDouble() / 72 * 25.4, 22 * 3.6 + 8, 0.5) << qPrintable(facts);
    EXPECT_TRUE(facts.contains(QRegularExpression(QStringLiteral("Pages: +1\\n")))) << qPrintable(facts);
    EXPECT_TRUE(facts.contains(QRegularExpression(QStringLiteral("Title: +ЧЕК № 7\\n")))) << qPrintable(facts);

    const QStringList fonts = told(QStringLiteral("pdffonts"), {pdf}).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(fonts.size(), 2 + 2) << "the book and the bold face, below two lines of head";
    for (const QString& font : fonts.mid(2)) {
        EXPECT_TRUE(font.contains(QStringLiteral("DejaVuSansMono"))) << qPrintable(font);
        EXPECT_TRUE(font.contains(QRegularExpression(QStringLiteral(" yes (yes|no) +yes "))))
            << "embedded, with its letters";
    }
}

TEST_F(ReceiptPrinterTest, receiptLongerThanAStrip_goesOnOverTheNext)
{
    Receipt receipt(1, QDateTime({2024, 1, 1}, {0, 0}));
    for (int i = 0; i < 600; ++i)
        receipt.add(goods(QStringLiteral("x"), 1.0, 1), {});
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).print(receipt));
    const QString pdf = path(QStringLiteral("printed/00000001.pdf"));
    EXPECT_TRUE(told(QStringLiteral("pdfinfo"), {pdf}).contains(QRegularExpression(QStringLiteral("Pages: +2\\n"))));
    const QString text = told(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    EXPECT_TRUE(text.contains(QStringLiteral("600. x")));
    EXPECT_TRUE(text.contains(QRegularExpression(QStringLiteral("ИТОГО +600,00"))));
}

TEST_F(ReceiptPrinterTest, files_areReadableByTheirOwnerAlone)
{
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).print(*sale()));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    for (const QString& file : printed())
        EXPECT_EQ(QFile::permissions(path(QStringLiteral("printed/") + file)) & others, 0) << qPrintable(file);
}

TEST_F(ReceiptPrinterTest, printedAgain_replacesTheFilesWhole)
{
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).print(*sale()));
    const auto other = QSharedPointer<Receipt>::create(7, QDateTime({2024, 1, 1}, {0, 0}));
    ASSERT_TRUE(ReceiptPrinter(folder.path(), marks).print(*other));
    EXPECT_EQ(text(QStringLiteral("00000007")), layout(*other).join(QLatin1Char('\n')).toStdString());
    EXPECT_EQ(printed().size(), 2);
}

TEST_F(ReceiptPrinterTest, printedAgainFromTheList_theOriginalStandsBesideACopyThatSaysSo)
{
    const ReceiptPrinter printer(folder.path(), marks);
    EXPECT_EQ(printer.printAgain(*sale()), QStringLiteral("printed/00000007.pdf")) << "never printed before";
    const std::string original = text(QStringLiteral("00000007"));
    EXPECT_EQ(original.find("КОПИЯ"), std::string::npos);
    const QByteArray originalPdf = content(path(QStringLiteral("printed/00000007.pdf")));
    EXPECT_EQ(printer.printAgain(*sale()), QStringLiteral("printed/00000007-copy.pdf"));
    EXPECT_EQ(text(QStringLiteral("00000007-copy")), std::string(17, ' ').append("КОПИЯ\n") + original);
    EXPECT_EQ(text(QStringLiteral("00000007")), original);
    EXPECT_EQ(content(path(QStringLiteral("printed/00000007.pdf"))), originalPdf);
    EXPECT_EQ(printed().size(), 4);
}

TEST_F(ReceiptPrinterTest, diskFull_isToldWithTheWayOutAndFormerFilesStand)
{
    const ReceiptPrinter printer(folder.path(), marks);
    ASSERT_TRUE(printer.print(*sale()));
    const QByteArray formerText = content(path(QStringLiteral("printed/00000007.txt")));
    const QByteArray formerPdf = content(path(QStringLiteral("printed/00000007.pdf")));
    const auto longer = sale();
    longer->add(goods(QString(200, QLatin1Char('x')), 1.0, 1), {});
    for (const rlim_t room : {64, 4096}) { // the text does not fit, or only the PDF does not
        const SmallDisk smallDisk(room);
        EXPECT_FALSE(printer.print(room == 64 ? *longer : *sale()));
    }
    EXPECT_EQ(content(path(QStringLiteral("printed/00000007.txt"))), formerText);
    EXPECT_EQ(content(path(QStringLiteral("printed/00000007.pdf"))), formerPdf);
    EXPECT_EQ(printed().size(), 2);
    ASSERT_EQ(messages.all().size(), 2);
    EXPECT_EQ(messages.all().first().kind, Dialog::Error);
    EXPECT_TRUE(messages.all().first().text.startsWith(QStringLiteral("Чек № 7 не напечатан: ")));
    EXPECT_TRUE(messages.all().first().text.contains(QStringLiteral("напечатайте его из списка документов")));
}

TEST_F(ReceiptPrinterTest, aFileStandsInTheFoldersPlace_isTold)
{
    QFile file(path(QStringLiteral("printed")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(ReceiptPrinter(folder.path(), marks).print(*sale()));
    EXPECT_EQ(messages.all().size(), 1);
}

class InterruptedPrinting : public ReceiptPrinterTest
{
protected:
    /// Has the archive hold a document that was ended at that minute of an hour.
    void finish(int number, int minute, Receipt::State state = Receipt::State::Closed)
    {
        const auto receipt = sale(number);
        Receipt::Ending ending = receipt->ending();
        ending.finished = QDateTime({2024, 2, 29}, {12, minute});
        ending.state = state;
        if (state == Receipt::State::Annulled)
            ending.annulled = ending.finished;
        receipt->setEnding(ending);
        ASSERT_TRUE(archive.save(receipt));
    }
    void printInterrupted() const { ReceiptPrinter(folder.path(), marks).printInterrupted(archive); }

    DocumentArchive archive{folder.path()};
};

TEST_F(InterruptedPrinting, lastClosedReceiptLacksAFile_isPrintedAndNoOther)
{
    finish(1, 10);
    finish(2, 20);
    printInterrupted();
    const QStringList both{QStringLiteral("00000002.pdf"), QStringLiteral("00000002.txt")};
    EXPECT_EQ(printed(), both);
    for (const QString& file : both) {
        ASSERT_TRUE(QFile::remove(path(QStringLiteral("printed/") + file)));
        printInterrupted();
        EXPECT_EQ(printed(), both);
    }
}

TEST_F(InterruptedPrinting, receiptWasPutAsideBefore_itsTimeCountsAndNotItsNumber)
{
    finish(3, 40);
    finish(5, 30);
    printInterrupted();
    EXPECT_EQ(printed(), (QStringList{QStringLiteral("00000003.pdf"), QStringLiteral("00000003.txt")}));
}

TEST_F(InterruptedPrinting, cancelledAndAnnulledDocuments_arePassedOver)
{
    finish(1, 10);
    finish(2, 20, Receipt::State::Cancelled);
    finish(3, 30, Receipt::State::Annulled);
    finish(4, 40, Receipt::State::PutAside);
    printInterrupted();
    EXPECT_EQ(printed(), (QStringList{QStringLiteral("00000001.pdf"), QStringLiteral("00000001.txt")}));
}

TEST_F(InterruptedPrinting, bothFilesAreThere_theyStayAsTheyAre)
{
    finish(1, 10);
    printInterrupted();
    QFile file(path(QStringLiteral("printed/00000001.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("as printed");
    file.close();
    printInterrupted();
    EXPECT_EQ(text(QStringLiteral("00000001")), "as printed");
}

TEST_F(InterruptedPrinting, onlyACopyIsThere_theReceiptIsPrinted)
{
    finish(1, 10);
    printInterrupted();
    EXPECT_FALSE(ReceiptPrinter(folder.path(), marks).printAgain(*sale(1)).isEmpty());
    ASSERT_TRUE(QFile::remove(path(QStringLiteral("printed/00000001.txt"))));
    printInterrupted();
    EXPECT_TRUE(printed().contains(QStringLiteral("00000001.txt")));
}

TEST_F(InterruptedPrinting, nothingFinished_nothingIsPrinted)
{
    printInterrupted();
    EXPECT_TRUE(printed().isEmpty());
    EXPECT_TRUE(messages.all().isEmpty());
}
