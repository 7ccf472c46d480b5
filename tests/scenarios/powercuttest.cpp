// SPDX-License-Identifier: MIT
#include "powercuttest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{

QString saveMoment(PowerFailure::At at)
{
    switch (at) {
    case PowerFailure::At::LongWork:
        return u"longWork"_s;
    case PowerFailure::At::BeforeSave:
        return u"beforeSave"_s;
    case PowerFailure::At::AfterSave:
        return u"afterSave"_s;
    default:
        return {};
    }
}

/// As JOURNAL_CUT wants it; empty when the power does not fail at a line of the journal.
QString journalMoment(const PowerFailure& failure)
{
    switch (failure.at) {
    case PowerFailure::At::BeforeJournalLine:
        return u"before %1"_s.arg(failure.nth);
    case PowerFailure::At::WithinJournalLine:
        return u"within %1"_s.arg(failure.nth);
    case PowerFailure::At::AfterJournalLine:
        return u"after %1"_s.arg(failure.nth);
    default:
        return {};
    }
}

/// A plug-in's layouts are in a folder of the library's name without it.
constexpr QLatin1StringView libraryPrefix{"lib"};

/// A last step that outlasts the power.
const QByteArray untilTheEnd = R"({"wait": "neverThere", "seconds": 50})";

} // namespace

void PowerCutTest::SetUp()
{
    Pharmacy::SetUp();
    leaveOpen(u"three-prescriptions.json"_s);
}

QString PowerCutTest::pluginFolder() const
{
    return dataFolder() + u"/plugins"_s;
}

void PowerCutTest::install(const QString& library)
{
    const QFileInfo plugin(library);
    const QString folder = plugin.completeBaseName().mid(libraryPrefix.size());
    ASSERT_TRUE(QDir().mkpath(pluginFolder()));
    QFile::link(library, pluginFolder() + u'/' + plugin.fileName());
    if (const QString brought = plugin.dir().filePath(folder); QFileInfo(brought).isDir()) {
        QFile::link(brought, pluginFolder() + u'/' + folder);
    }
}

void PowerCutTest::playUntil(const PowerFailure& failure, const QByteArrayList& steps)
{
    install(QString::fromUtf8(PLUGIN_FOLDER "/libelectronicprescription.so"));
    install(QString::fromUtf8(POWER_CUT_PLUGIN));

    configure(u"PowerCut:at"_s, saveMoment(failure.at));
    configure(u"PowerCut:nth"_s, QString::number(failure.nth));
    setInEnvironment(u"JOURNAL_CUT"_s, journalMoment(failure));
    setInEnvironment(u"LD_PRELOAD"_s, journalMoment(failure).isEmpty() ? QString() : QString::fromUtf8(JOURNAL_CUT));
    const bool atRequest = *failure.endpoint != 0;
    if (atRequest) {
        registry.orderFault({{"endpoint", failure.endpoint},
                             {"nth", failure.nth},
                             {"fault", "never"},
                             {"carriedOut", failure.at == PowerFailure::At::AnswerLost}});
    }
    registry.forgetRequests();
    startSteps(steps + QByteArrayList{untilTheEnd}, {"--plugins", pluginFolder()});
    if (atRequest) {
        ASSERT_TRUE(waitForRequests(failure.endpoint, failure.nth)) << qPrintable(waitForEnd().output);
        kill();
    }
    const Outcome outcome = waitForEnd();
    ASSERT_TRUE(wasKilled()) << qPrintable(outcome.output);
    registry.withdrawFaults();
    configure(u"PowerCut:at"_s, {});
    setInEnvironment(u"JOURNAL_CUT"_s, {});
    setInEnvironment(u"LD_PRELOAD"_s, {});
}

void PowerCutTest::correct(const QString& file)
{
    QJsonObject corrected = document(file);
    QJsonArray positions = corrected["positions"].toArray();
    for (QJsonValueRef entry : positions) {
        QJsonObject position = entry.toObject();
        QJsonObject options = optionsOf(position);
        const auto dispenses = registry.dispensesOf(options["id"].toString());
        if (dispenses.isEmpty()) {
            continue;
        }
        options["medicationDispenseId"] = dispenses.last().id;
        options["status"] = dispenses.last().cancelled ? "canceled" : "dispensed";
        position["extendedOptions"] = QString::fromUtf8(QJsonDocument(options).toJson(QJsonDocument::Compact));
        entry = position;
    }
    corrected["positions"] = positions;
    QFile saved(dataFolder() + '/' + file);
    ASSERT_TRUE(saved.open(QIODevice::WriteOnly));
    saved.write(QJsonDocument(corrected).toJson());
}

void PowerCutTest::expectRegisteredOnce(const QJsonObject& document)
{
    const QStringList registered = registeredBy(document);
    EXPECT_EQ(registered.size(), 3);
    EXPECT_EQ(validDispenses(), registered);
    EXPECT_EQ(registry.dispenses().size(), 3);
}

void PowerCutTest::expectNothingRegistered()
{
    EXPECT_EQ(validDispenses(), QStringList());
}

std::string nameOf(const ::testing::TestParamInfo<PowerFailure>& instance)
{
    return instance.param.name;
}
