// SPDX-License-Identifier: MIT
#include "printedreports.h"
#include "clockdouble.h"
#include "configured.h"
#include "dialogdouble.h"
#include "logcapture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class PrintedReportsTest : public ::testing::Test
{
protected:
    static void print(const QStringList& lines = {})
    {
        Singleton<ReportPrinter>::get()->print({tr::undefined, u"Сверка с реестром"_s}, lines);
    }
    QStringList printed() const
    {
        return QDir(folder.filePath(u"printed"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QStringList linesOf(const QString& name) const
    {
        QFile file(folder.filePath(u"printed/"_s + name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(u'\n') : QStringList();
    }

    QTemporaryDir folder;
    Configured config;
    ClockDouble clock{QDateTime({2024, 2, 29}, {12, 31, 7})};
    DialogDouble dialog;
    PrintedReports reports{folder.path()};
};

TEST_F(PrintedReportsTest, report_isPrintedAsTextLetterByLetterAndAsPdf)
{
    config.set(u"Register:pharmacyName"_s, u"Аптека № 17"_s);
    print({u"Чек № 7"_s, u"  Рецепт 4500-1: отпуск найден в реестре и учтён"_s, QString(), u"<b>%1\tконец"_s});
    EXPECT_EQ(linesOf(u"report-20240229-123107.txt"_s),
              (QStringList{u"              Аптека № 17"_s, QString(40, u'-'), u"           Сверка с реестром"_s,
                           u"            29.02.2024 12:31"_s, QString(40, u'-'), u"Чек № 7"_s,
                           u"  Рецепт 4500-1: отпуск найден в реестре"_s, u"  и учтён"_s, QString(), u"<b>%1 конец"_s,
                           QString()}));
    EXPECT_EQ(printed(), (QStringList{u"report-20240229-123107.pdf"_s, u"report-20240229-123107.txt"_s}));
    EXPECT_TRUE(linesOf(u"report-20240229-123107.pdf"_s).first().startsWith(u"%PDF"_s));
    EXPECT_TRUE(dialog.messages().isEmpty());
}

TEST_F(PrintedReportsTest, files_areReadableByTheirOwnerAlone)
{
    print();
    for (const QString& file : printed()) {
        const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther;
        EXPECT_FALSE(QFileInfo(folder.filePath(u"printed/"_s + file)).permissions() & others) << qPrintable(file);
    }
    EXPECT_EQ(printed().size(), 2);
}

TEST_F(PrintedReportsTest, severalInOneSecond_noneIsOverwritten)
{
    print({u"первый"_s});
    print({u"второй"_s});
    print({u"третий"_s});
    EXPECT_TRUE(linesOf(u"report-20240229-123107.txt"_s).contains(u"первый"_s));
    EXPECT_TRUE(linesOf(u"report-20240229-123107-2.txt"_s).contains(u"второй"_s));
    EXPECT_TRUE(linesOf(u"report-20240229-123107-3.txt"_s).contains(u"третий"_s));
    EXPECT_EQ(printed().size(), 6);
}

TEST_F(PrintedReportsTest, folderCannotBeMade_isLoggedAndTheCashierReadsWhatToDo)
{
    QFile file(folder.filePath(u"printed"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const LogCapture log;
    print();
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_TRUE(dialog.messages().first().text.startsWith(u"Отчёт «Сверка с реестром» не напечатан: "_s));
    EXPECT_TRUE(dialog.messages().first().text.endsWith(u"и повторите действие."_s));
    EXPECT_EQ(log.lines().filter(u"ERROR register A report was not printed: "_s).size(), 1);
}

TEST(PrintedReports, gone_theFormerPrinterIsBack)
{
    const Own<ReportPrinter> former;
    const QTemporaryDir folder;
    {
        const PrintedReports reports(folder.path());
        EXPECT_EQ(Singleton<ReportPrinter>::get(), &reports);
    }
    EXPECT_EQ(Singleton<ReportPrinter>::get(), &former.object);
}
