// SPDX-License-Identifier: MIT
#include "clockdouble.h"
#include "configured.h"
#include "dialogdouble.h"
#include "documentdouble.h"
#include "savingdouble.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

struct Counter : MockFactory<Counter> {
    explicit Counter(int start = 0)
        : count(start)
    {
    }
    int count;
};

const QDateTime noon({2024, 2, 29}, {12, 0});

} // namespace

TEST(Own, scopeLeft_formerObjectIsBack)
{
    const Own<Counter> outer;
    {
        const Own<Counter> inner(7);
        EXPECT_EQ(Singleton<Counter>::get(), &inner.object);
        EXPECT_EQ(Singleton<Counter>::get()->count, 7);
    }
    EXPECT_EQ(Singleton<Counter>::get(), &outer.object);
}

TEST(InPlace, scopeLeftByException_formerObjectIsBack)
{
    const Own<Counter> outer;
    Counter other;
    EXPECT_THROW(
        {
            const InPlace<Counter> place(&other);
            throw std::runtime_error("out");
        },
        std::runtime_error);
    EXPECT_EQ(Singleton<Counter>::get(), &outer.object);
}

TEST(Mocked, scopeLeft_formerFactoryIsBack)
{
    const auto first = QSharedPointer<Counter>::create();
    const auto second = QSharedPointer<Counter>::create();
    {
        const Mocked<Counter> outer(first);
        {
            const Mocked<Counter> inner([&second] { return second; });
            EXPECT_EQ(Counter::create(), second);
        }
        EXPECT_EQ(Counter::create(), first);
    }
    EXPECT_FALSE(MockFactory<Counter>::mocked);
}

TEST(Configured, scopeLeft_formerConfigurationIsBack)
{
    Configured outer({{u"Register:data"_s, u"/outer"_s}});
    outer.setForThisRun(u"GUI:touchMode"_s, u"true"_s);
    {
        const Configured inner({{u"Register:data"_s, u"/inner"_s}});
        EXPECT_EQ(Singleton<Config>::get()->getString(u"Register:data"_s), u"/inner"_s);
        EXPECT_FALSE(Singleton<Config>::get()->getBool(u"GUI:touchMode"_s));
    }
    EXPECT_EQ(Singleton<Config>::get()->getString(u"Register:data"_s), u"/outer"_s);
    EXPECT_TRUE(Singleton<Config>::get()->getBool(u"GUI:touchMode"_s));
}

TEST(ClockDouble, momentSet_everyClockShowsIt)
{
    ClockDouble clock(noon);
    const auto former = CurrentTime::create();
    EXPECT_EQ(former->current(), noon);
    clock.now = noon.addDays(1);
    EXPECT_EQ(former->current(), noon.addDays(1));
    EXPECT_EQ(CurrentTime::create()->current(), noon.addDays(1));
}

TEST(DialogDouble, messageShown_isKeptBeforeItIsReported)
{
    DialogDouble dialog;
    qsizetype keptByThen = 0;
    dialog.onMessage = [&](const auto& message) {
        keptByThen = dialog.messages().size();
        EXPECT_EQ(message.text, u"Чек № 1"_s);
    };
    const tr::Tr message = tr::Tr(u"aKey"_s, u"Чек № %1"_s).arg(u"1"_s);
    Dialog::create()->showMessage(message, Dialog::Notice, 1, 5);
    EXPECT_EQ(keptByThen, 1);
    ASSERT_EQ(dialog.messages().size(), 1);
    EXPECT_EQ(dialog.messages().first().tr, message);
    EXPECT_EQ(dialog.messages().first().kind, Dialog::Notice);
    EXPECT_EQ(dialog.messages().first().sound, 1);
    EXPECT_EQ(dialog.messages().first().seconds, 5);
}

TEST(DialogDouble, textInput_isAnsweredByTheTest)
{
    DialogDouble dialog;
    dialog.onTextInput = [](const TextInputParams& params) -> core::BasicDialog::Result { return {params.inputName}; };
    TextInputParams params;
    params.inputName = u"inputCard"_s;
    EXPECT_EQ(Dialog::create()->showTextInput(params).getData(), u"inputCard"_s);
}

class SavingDoubleTest : public ::testing::Test
{
protected:
    bool save() const { return SaveToFileLogic::create()->save(document, u"sale.json"_s); }
    QStringList written() const { return QDir(folder.path()).entryList(QDir::Files); }

    QTemporaryDir folder;
    Configured config{QMap<QString, QString>{{u"Register:data"_s, folder.path()}}};
    QSharedPointer<DocumentDouble> document = QSharedPointer<DocumentDouble>::create();
    SavingDouble saving;
};

TEST_F(SavingDoubleTest, nothingDecided_documentIsWritten)
{
    EXPECT_TRUE(save());
    EXPECT_EQ(written(), QStringList{u"sale.json"_s});
    EXPECT_EQ(saving.files, QStringList{document->fileName()});
}

TEST_F(SavingDoubleTest, failAll_nothingIsWritten)
{
    saving.failAll();
    EXPECT_FALSE(save());
    EXPECT_EQ(written(), QStringList());
    EXPECT_EQ(saving.files, QStringList{document->fileName()});
}

TEST_F(SavingDoubleTest, writtenAndRefused_documentIsWrittenAndCountsAsNotSaved)
{
    saving.onSave = [this](const auto& saved, const QString& file, const SavingDouble::Write& write) {
        EXPECT_EQ(saved, document);
        EXPECT_EQ(file, u"sale.json"_s);
        EXPECT_TRUE(write());
        return false;
    };
    EXPECT_FALSE(save());
    EXPECT_EQ(written(), QStringList{u"sale.json"_s});
}
