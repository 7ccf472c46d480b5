// SPDX-License-Identifier: MIT
// What the till refuses while the plug-in of a position does not work.
#include "pluginscope.h"
#include "savetofilelogic.h"
#include "tillfixture.h"

using namespace Qt::StringLiterals;

namespace
{

/// How the plug-in of a position is known.
struct Marking {
    const char* name;
    const char* plugin; ///< whose scope it is marked in
    const char* works;  ///< a plug-in that works and does not make the position served; empty: none works
    const char* shown;  ///< the beginning of the message
    const char* brief;
};

const Marking markings[] = {
    {"pluginNamed", "prescriptions", "",
     "Документ № 1: позицию № 2 ведёт модуль «prescriptions», а он не работает.\nПозовите администратора",
     "не работает модуль «prescriptions»"},
    {"anotherPluginWorks", "prescriptions", "discounts",
     "Документ № 1: позицию № 2 ведёт модуль «prescriptions», а он не работает.\nПозовите администратора",
     "не работает модуль «prescriptions»"},
    {"pluginNotNamed", "", "",
     "Документ № 1: позиция № 2 отпускается по документу, а ни один модуль не работает.\nПозовите администратора",
     "модули не работают"},
};

} // namespace

/// A sale of two positions, the second of which belongs to a plug-in that works until idle() is called.
class MissingPlugin : public TillFixture, public ::testing::WithParamInterface<Marking>
{
protected:
    MissingPlugin()
    {
        works();
        till->add(article(amoxidar));
        till->add(article(amoxidar));
        const PluginScope scope(QString::fromUtf8(GetParam().plugin));
        till->document()->position(2)->setSoftCheckId(u"rx-1"_s);
    }

    void works() { activePlugins = {u"prescriptions"_s}; }
    void idle()
    {
        activePlugins.clear();
        if (*GetParam().works) {
            activePlugins.append(QString::fromUtf8(GetParam().works));
        }
    }
    const QString meanwhile = u"Открытый документ пока можно отложить."_s;

    bool close() { return till->close({Payment::cash(till->document()->getSum())}); }
    QSharedPointer<Document> archived(int number) const { return till->archive().find(number); }

    static void expectRefused(const std::optional<Obstacle>& obstacle)
    {
        ASSERT_TRUE(obstacle);
        EXPECT_TRUE(obstacle->text.ui().startsWith(QString::fromUtf8(GetParam().shown)))
            << qPrintable(obstacle->text.ui());
        EXPECT_EQ(obstacle->brief.ui(), QString::fromUtf8(GetParam().brief));
    }
};

TEST_P(MissingPlugin, saleOpen_isNeitherPaidNorCancelledNorThePositionRemoved)
{
    idle();
    expectRefused(till->obstacleToPayment());
    expectRefused(till->obstacleToCancelling());
    expectRefused(till->obstacleOfPlugin(*till->document()->position(2)));
    EXPECT_TRUE(till->obstacleToPayment()->text.ui().endsWith(meanwhile));
    EXPECT_TRUE(till->obstacleToOpening()->text.ui().contains(u"отложите"_s)) << "it may be suspended";

    const QJsonObject before = till->document()->toJson();
    till->setPhase(Till::Phase::Subtotal);
    EXPECT_EQ(till->phase(), Till::Phase::Positions);
    EXPECT_FALSE(close());
    EXPECT_FALSE(till->cancel());
    till->remove(2);
    EXPECT_EQ(till->document()->toJson(), before);
}

TEST_P(MissingPlugin, otherPosition_isRemovedAndGoodsAreAdded)
{
    idle();
    EXPECT_FALSE(till->obstacleOfPlugin(*till->document()->position(1)));
    till->remove(1);
    EXPECT_EQ(till->document()->positions().size(), 1);
    EXPECT_EQ(till->add(article(amoxidar)), 3);
}

TEST_P(MissingPlugin, saleOpen_isSuspendedAndResumedAndNotVoided)
{
    idle();
    ASSERT_TRUE(till->suspend());
    expectRefused(till->obstacleToVoiding(*archived(1)));
    EXPECT_FALSE(till->obstacleToVoiding(*archived(1))->text.ui().contains(meanwhile)) << "it is suspended already";
    EXPECT_FALSE(till->voidDocument(archived(1)));
    EXPECT_TRUE(till->resume(archived(1)));
}

TEST_P(MissingPlugin, saleClosed_isNeitherReturnedAsAWholeNorVoided)
{
    ASSERT_TRUE(close());
    idle();
    expectRefused(till->obstacleToReturning(*archived(1), {1, 2}));
    expectRefused(till->obstacleToReturning(*archived(1), {2}));
    expectRefused(till->obstacleToVoiding(*archived(1)));
    till->open();
    EXPECT_FALSE(till->obstacleToVoiding(*archived(1))->text.ui().contains(meanwhile)) << "another one is open";
    ASSERT_TRUE(till->cancel());
    EXPECT_FALSE(till->returnSale(archived(1)));
    EXPECT_FALSE(till->voidDocument(archived(1)));
    EXPECT_EQ(archived(1)->getState(), Document::State::Closed);
    EXPECT_FALSE(till->document());
}

TEST_P(MissingPlugin, saleClosed_isPrintedOnlyWhenItsPluginWorks)
{
    ASSERT_TRUE(close());
    EXPECT_FALSE(till->obstacleToPrinting(*archived(1)));
    idle();
    const std::optional<Obstacle> obstacle = till->obstacleToPrinting(*archived(1));
    ASSERT_TRUE(obstacle);
    EXPECT_EQ(obstacle->text.ui(),
              u"Чек № 1 пока не печатается: %1, и на чеке не было бы сведений об отпуске.\n"
              "Позовите администратора. Предложите покупателю подождать или зайти за чеком позже: когда модуль "
              "заработает, напечатайте чек из списка документов."_s.arg(QString::fromUtf8(GetParam().brief)));
    EXPECT_EQ(obstacle->brief.ui(), QString::fromUtf8(GetParam().brief));
    works();
    EXPECT_FALSE(till->obstacleToPrinting(*archived(1)));
}

TEST_P(MissingPlugin, positionOfTheRegisterAlone_isReturnedAndThenNoneIsLeftToReturn)
{
    ASSERT_TRUE(close());
    idle();
    EXPECT_FALSE(till->obstacleToReturning(*archived(1)));
    EXPECT_FALSE(till->obstacleToReturning(*archived(1), {1}));
    EXPECT_FALSE(till->returnPositions(archived(1), {1, 2}));
    ASSERT_TRUE(till->returnPositions(archived(1), {1}));
    EXPECT_FALSE(till->obstacleToPayment());
    ASSERT_TRUE(close());
    EXPECT_EQ(till->returned(*archived(1)), Document::Returned::Partly);
    expectRefused(till->obstacleToReturning(*archived(1)));
}

TEST_P(MissingPlugin, returnOpen_isNeitherPaidOutNorCancelledButSuspended)
{
    ASSERT_TRUE(close());
    ASSERT_TRUE(till->returnSale(archived(1)));
    idle();
    ASSERT_TRUE(till->obstacleToPayment());
    ASSERT_TRUE(till->obstacleToCancelling());
    EXPECT_FALSE(close());
    EXPECT_FALSE(till->cancel());
    ASSERT_TRUE(till->suspend());
    EXPECT_TRUE(till->archive().returned(*archived(1), nullptr) == Document::Returned::Wholly)
        << "it is still being returned";
    const QString why = till->obstacleToReturning(*archived(1))->text.ui();
    EXPECT_TRUE(why.startsWith(u"Возврат продажи № 1 начат и отложен, его номер 2: %1.\nПозовите администратора."_s.arg(
        QString::fromUtf8(GetParam().brief))))
        << qPrintable(why);
    EXPECT_FALSE(till->returnSale(archived(1)));
    EXPECT_TRUE(till->obstacleToVoiding(*archived(2))) << "a return is not voided";

    works();
    EXPECT_EQ(till->obstacleToReturning(*archived(1))->text.ui(),
              u"Возврат продажи № 1 начат и отложен, его номер 2.\nВозьмите его в работу из списка документов."_s);
    EXPECT_TRUE(till->obstacleToVoiding(*archived(2)));
    ASSERT_TRUE(till->resume(archived(2)));
    EXPECT_TRUE(till->document()->isReturn());
    EXPECT_EQ(till->obstacleToSuspending()->brief.ui(), u"возврат не откладывают"_s);
    EXPECT_TRUE(close());
    EXPECT_TRUE(till->archive().returned(*archived(1), nullptr) == Document::Returned::Wholly);
}

TEST_P(MissingPlugin, worksAgain_everythingGoesOn)
{
    idle();
    works();
    EXPECT_FALSE(till->obstacleToPayment());
    EXPECT_FALSE(till->obstacleToCancelling());
    EXPECT_FALSE(till->obstacleOfPlugin(*till->document()->position(2)));
    ASSERT_TRUE(close());
    EXPECT_FALSE(till->obstacleToReturning(*archived(1)));
    EXPECT_TRUE(till->voidDocument(archived(1)));
}

INSTANTIATE_TEST_SUITE_P(, MissingPlugin, ::testing::ValuesIn(markings),
                         [](const auto& instance) { return instance.param.name; });

/// A sale whose first position belongs to one plug-in, "papers", while a second one, "stamps", does not know yet what
/// its server holds of it.
class SecondPlugin : public TillFixture
{
protected:
    SecondPlugin()
    {
        loadMarks(bothMarks, u"papers"_s, R"({"tag": "paper", "mark": "Б"})");
        loadMarks(bothMarks, u"stamps"_s, R"({"tag": "paper", "states": [
            {"option": "stamp", "value": "unknown", "undecided": true}]})");
        loadMarks(oneOfThem, u"papers"_s, R"({"tag": "paper", "mark": "Б"})");
        activePlugins = both;
        till->setMarks(bothMarks);
        till->add(article(amoxidar));
        const PluginScope scope(u"papers"_s);
        till->document()->position(1)->setTag(u"paper"_s);
        till->document()->position(1)->setSoftCheckId(u"p-1"_s);
        mark(u"unknown"_s);
    }

    void loadMarks(PositionMarks& marks, const QString& plugin, const QByteArray& entry) const
    {
        QDir(folder.path()).mkdir(plugin);
        QFile file(folder.filePath(plugin + u"/positionmarks.json"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"positions": [)" + entry + "]}");
        file.close();
        marks.load(file.fileName());
    }

    /// As the second plug-in does: it writes its option and saves.
    void mark(const QString& stamp)
    {
        const PluginScope scope(u"stamps"_s);
        till->document()->position(1)->setExtendedOptions(u"{\"stamp\": \"%1\"}"_s.arg(stamp));
        ASSERT_TRUE(SaveToFileLogic::create()->save(till->document(), {}));
    }

    /// The register ends and starts again with these plug-ins, and the marks of those that are installed.
    void restart(const QStringList& active, const PositionMarks& installed)
    {
        till.reset();
        till = std::make_unique<Till>(folder.path());
        activePlugins = active;
        till->setActivePlugins([this] { return activePlugins; });
        till->setMarks(installed);
        till->restore(OpenDocumentFile(folder.path()).load());
    }
    void restartWithoutTheSecond() { restart({u"papers"_s}, oneOfThem); }

    bool close() { return till->close({Payment::cash(till->document()->getSum())}); }
    QSharedPointer<Document> archived(int number) const { return till->archive().find(number); }

    static void expectRefused(const std::optional<Obstacle>& obstacle)
    {
        ASSERT_TRUE(obstacle);
        EXPECT_TRUE(obstacle->text.ui().startsWith(
            u"Документ № 1: позицию № 1 ведёт модуль «stamps», а он не работает.\nПозовите администратора"_s))
            << qPrintable(obstacle->text.ui());
        EXPECT_EQ(obstacle->brief.ui(), u"не работает модуль «stamps»"_s);
    }

    const QStringList both{u"papers"_s, u"stamps"_s};
    PositionMarks bothMarks;
    PositionMarks oneOfThem;
};

TEST_F(SecondPlugin, uninstalledWhileUndecided_saleIsNeitherPaidNorCancelledNorThePositionRemoved)
{
    restartWithoutTheSecond();
    ASSERT_TRUE(till->document());
    expectRefused(till->obstacleToPayment());
    expectRefused(till->obstacleToCancelling());
    expectRefused(till->obstacleOfPlugin(*till->document()->position(1)));
    ASSERT_FALSE(close());
    ASSERT_FALSE(till->cancel());
    till->remove(1);
    EXPECT_TRUE(till->document()->position(1));
}

TEST_F(SecondPlugin, uninstalledWhileUndecided_itIsStillKnownAfterOtherSavesAndStarts)
{
    restartWithoutTheSecond();
    till->add(article(amoxidar));
    restartWithoutTheSecond();
    expectRefused(till->obstacleToPayment());
    ASSERT_TRUE(till->suspend());
    expectRefused(till->obstacleToVoiding(*archived(1)));
    EXPECT_FALSE(till->voidDocument(archived(1)));
    ASSERT_TRUE(till->resume(archived(1)));
    expectRefused(till->obstacleToPayment());
}

TEST_F(SecondPlugin, inertWhileUndecided_isMissingToo)
{
    restart({u"papers"_s}, bothMarks);
    expectRefused(till->obstacleToPayment());
}

TEST_F(SecondPlugin, endsByItselfWhileUndecided_isMissingAtOnce)
{
    activePlugins = {u"papers"_s};
    expectRefused(till->obstacleToPayment());
}

TEST_F(SecondPlugin, bothMissing_thePositionsOwnOneIsNamed)
{
    const PositionMarks none; // the till keeps no marks of its own
    restart({}, none);
    EXPECT_EQ(till->obstacleToPayment()->brief.ui(), u"не работает модуль «papers»"_s);
}

TEST_F(SecondPlugin, backAndDecided_everythingGoesOnAndItIsNotMissedAnyMore)
{
    restartWithoutTheSecond();
    restart(both, bothMarks);
    EXPECT_FALSE(till->obstacleToPayment());
    EXPECT_FALSE(till->obstacleToSuspending()) << "it is undecided";
    mark(u"known"_s);
    restartWithoutTheSecond();
    EXPECT_FALSE(till->obstacleToPayment());
    ASSERT_TRUE(close());
    EXPECT_FALSE(till->obstacleToReturning(*archived(1), {1}));
    EXPECT_TRUE(till->voidDocument(archived(1)));
}

TEST_F(SecondPlugin, decidedBeforeItWasUninstalled_noDocumentIsLocked)
{
    mark(u"known"_s);
    ASSERT_TRUE(close());
    restartWithoutTheSecond();
    ASSERT_TRUE(till->returnSale(archived(1)));
    EXPECT_FALSE(till->obstacleToPayment());
    EXPECT_FALSE(till->obstacleToCancelling());
    EXPECT_TRUE(close());
}

TEST_F(SecondPlugin, returnUndecidedWhenItIsUninstalled_isSuspendedAndTheSaleIsNotReturnedAgain)
{
    mark(u"known"_s);
    ASSERT_TRUE(close());
    ASSERT_TRUE(till->returnSale(archived(1)));
    mark(u"unknown"_s);
    restartWithoutTheSecond();
    EXPECT_EQ(till->obstacleToPayment()->brief.ui(), u"не работает модуль «stamps»"_s);
    EXPECT_EQ(till->obstacleToCancelling()->brief.ui(), u"не работает модуль «stamps»"_s);
    ASSERT_TRUE(till->suspend());
    EXPECT_TRUE(till->obstacleToReturning(*archived(1))->text.ui().contains(u"не работает модуль «stamps»"_s));
}

TEST_F(SecondPlugin, neverInstalled_itsOptionMeansNothing)
{
    till.reset();
    till = std::make_unique<Till>(folder.path());
    till->setActivePlugins([] { return QStringList{u"papers"_s}; });
    till->setMarks(oneOfThem);
    till->add(article(amoxidar));
    const auto position = till->document()->position(1);
    position->setTag(u"paper"_s);
    position->setExtendedOptions(uR"({"stamp": "unknown"})"_s);
    till->save();
    EXPECT_FALSE(till->obstacleToPayment());
    EXPECT_TRUE(close());
}

using NoPlugin = TillFixture;

TEST_F(NoPlugin, positionsOfTheRegisterAlone_needNone)
{
    activePlugins.clear();
    till->add(article(amoxidar));
    EXPECT_FALSE(till->obstacleToPayment());
    EXPECT_FALSE(till->obstacleToCancelling());
    EXPECT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
    EXPECT_FALSE(till->obstacleToReturning(*till->archive().find(1)));
    EXPECT_FALSE(till->obstacleToPrinting(*till->archive().find(1)));
    EXPECT_TRUE(till->voidDocument(till->archive().find(1)));
}

TEST_F(NoPlugin, pluginsNotSet_countAsIdle)
{
    till->add(article(amoxidar));
    till->document()->position(1)->setSoftCheckId(u"rx-1"_s);
    EXPECT_FALSE(till->obstacleToPayment());
    till->setActivePlugins({});
    EXPECT_TRUE(till->obstacleToPayment());
}
