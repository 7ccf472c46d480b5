// SPDX-License-Identifier: MIT
// A request to the registry meets an end of the register, at every moment and position, with and without the plug-in
// that settles lost answers. The table of docs/reliability.md says what that leads to. An ordinary run plays one cell
// for each moment; with KILL_TABLE=all in the environment, as scripts/fault-table sets it, every cell is played and the
// table printed.

#include "powercuttest.h"

#include <QFile>
#include <QJsonDocument>
#include <QMap>

#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

using At = PowerFailure::At;

enum class Request { Registration, Cancellation };

/// When the register ends.
struct End {
    const char* name; ///< as in the table
    enum class Moment { BeforeSending, AfterBooking, AfterTheAnswer, BeforeTheSave, Orderly } moment;
};
using Moment = End::Moment;

const End ends[] = {
    {"killed before it is sent", Moment::BeforeSending},   {"killed after booking", Moment::AfterBooking},
    {"killed after the answer", Moment::AfterTheAnswer},   {"killed before the save", Moment::BeforeTheSave},
    {"terminated while it is under way", Moment::Orderly},
};

/// How much of the prescription each position dispenses.
enum class Kind { Complete, DosesLeft, NoneLeft };

struct Cell {
    Request request;
    End end;
    Kind kind;
    int position;      ///< 1, 2 or 3: whose request it is
    bool withRecovery; ///< the plug-in that settles lost answers is there
};

/// What the command leads to when it is given again.
QString expectedIn(const Cell& cell)
{
    const bool isLost = cell.end.moment != Moment::BeforeSending && cell.end.moment != Moment::Orderly;
    if (cell.withRecovery || !isLost) {
        return u"in step"_s;
    }
    return cell.request == Request::Registration && cell.kind == Kind::DosesLeft ? u"booked twice"_s : u"blocked"_s;
}

/// A part of the message at the next start; empty: there is none.
QByteArray foundAfter(const Cell& cell)
{
    if (!cell.withRecovery || cell.end.moment == Moment::Orderly) {
        return {};
    }
    const bool isDone = cell.end.moment != Moment::BeforeSending;
    if (cell.request == Request::Registration) {
        return isDone ? "Отпуск записан в реестре под номером" : "Отпуска в реестре нет";
    }
    return isDone ? "Отпуск в реестре отменён" : "Отпуск в реестре не отменён";
}

QString rowName(Request request, const End& end)
{
    return (request == Request::Registration ? u"registration: "_s : u"cancellation: "_s) + QString::fromUtf8(end.name);
}

QList<Cell> cellsOf(Request request, const End& end)
{
    QList<Cell> cells;
    for (const bool withRecovery : {false, true}) {
        for (const Kind kind : {Kind::Complete, Kind::DosesLeft, Kind::NoneLeft}) {
            for (const int position : {1, 2, 3}) {
                cells.append({request, end, kind, position, withRecovery});
            }
        }
    }
    return cells;
}

/// A row of the table in docs/reliability.md.
///
/// @param resultIn what a cell leads to
template <typename ResultIn>
QString rowOf(Request request, const End& end, const ResultIn& resultIn)
{
    constexpr int positions = 3;
    const QList<Cell> cells = cellsOf(request, end);
    QString row = u"| %1 |"_s.arg(rowName(request, end));
    for (qsizetype first = 0; first < cells.size(); first += positions) {
        QStringList results;
        for (const Cell& cell : cells.mid(first, positions)) {
            results.append(resultIn(cell));
        }
        results.removeDuplicates();
        row += u" %1 |"_s.arg(results.join(u" / "_s));
    }
    return row;
}

bool isEveryCellPlayed()
{
    return qgetenv("KILL_TABLE") == "all";
}

std::vector<Cell> cellsToPlay()
{
    if (!isEveryCellPlayed()) {
        return {
            {Request::Registration, ends[0], Kind::DosesLeft, 2, true},
            {Request::Cancellation, ends[1], Kind::Complete, 3, true},
            {Request::Registration, ends[2], Kind::DosesLeft, 1, true},
            {Request::Cancellation, ends[3], Kind::NoneLeft, 2, true},
            {Request::Registration, ends[4], Kind::Complete, 2, true},
        };
    }
    std::vector<Cell> cells;
    for (const Request request : {Request::Registration, Request::Cancellation}) {
        for (const End& end : ends) {
            for (const Cell& cell : cellsOf(request, end)) {
                cells.push_back(cell);
            }
        }
    }
    return cells;
}

std::string nameOf(const Cell& cell)
{
    static const char* const kinds[] = {"Complete", "DosesLeft", "NoneLeft"};
    QString name = rowName(cell.request, cell.end) + QString::fromLatin1(kinds[int(cell.kind)]) +
                   QString::number(cell.position) + (cell.withRecovery ? u"With"_s : u"Alone"_s);
    return name.remove(u' ').remove(u':').toStdString();
}

class KillTable : public PowerCutTest, public ::testing::WithParamInterface<Cell>
{
protected:
    void SetUp() override
    {
        PowerCutTest::SetUp();
        configure("RestClient:journal", "*/MedicationDispense/*");
        if (GetParam().withRecovery) {
            install(RECOVERY_PLUGIN);
        }
        writeDocument();
    }
    static void TearDownTestSuite()
    {
        if (isEveryCellPlayed()) {
            for (const Request request : {Request::Registration, Request::Cancellation}) {
                for (const End& end : ends) {
                    std::printf("%s\n", qPrintable(rowOf(request, end, [](const Cell& cell) {
                                    return results.value(QString::fromStdString(nameOf(cell)), u"not played"_s);
                                })));
                }
            }
        }
    }

    /// The open document of three prescriptions, each dispensed as the cell says.
    void writeDocument()
    {
        QJsonObject open = savedDocument();
        QJsonArray positions = open["positions"].toArray();
        for (QJsonValueRef entry : positions) {
            QJsonObject position = entry.toObject();
            QJsonObject options = optionsOf(position);
            const double all = options["id"] == "rx-2001" ? 60 : 30; // as the demo's seed has it
            options["doseQuantity"] = GetParam().kind == Kind::DosesLeft ? 5 : all;
            options["finalDispense"] = GetParam().kind == Kind::Complete;
            position["extendedOptions"] = QString::fromUtf8(QJsonDocument(options).toJson(QJsonDocument::Compact));
            entry = position;
        }
        open["positions"] = positions;
        QFile file(dataFolder() + "/receipt.json");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QJsonDocument(open).toJson());
    }

    static bool isRegistration() { return GetParam().request == Request::Registration; }
    static const char* endpoint() { return isRegistration() ? "register" : "cancel"; }

    /// Gives the command, and ends the register at the cell's moment.
    void endWithinTheCommand()
    {
        const QByteArrayList steps = isRegistration() ? QByteArrayList{cashier::findsTheDocument, R"({"key": "F6"})"}
                                                      : QByteArrayList{cashier::findsTheDocument, cashier::subtotal,
                                                                       cashier::cancelsTheDocument};
        // The registrations before a cancellation have lines and saves, too.
        const int request = GetParam().position + (isRegistration() ? 0 : 3);
        switch (GetParam().end.moment) {
        case Moment::BeforeSending:
            playUntil({"", At::AfterJournalLine, 2 * request - 1}, steps);
            break;
        case Moment::AfterBooking:
            playUntil({"", At::AnswerLost, GetParam().position, endpoint()}, steps);
            break;
        case Moment::AfterTheAnswer:
            playUntil({"", At::BeforeJournalLine, 2 * request}, steps);
            break;
        case Moment::BeforeTheSave:
            playUntil({"", At::BeforeSave, request}, steps);
            break;
        case Moment::Orderly:
            terminateWithin(steps);
            break;
        }
    }
    void terminateWithin(const QByteArrayList& steps)
    {
        install(PLUGIN_FOLDER "/libelectronicprescription.so");
        registry.orderFault(
            {{"endpoint", endpoint()}, {"nth", GetParam().position}, {"fault", "delay"}, {"delay", 500}});
        startSteps(steps + QByteArrayList{R"({"wait": "neverThere", "seconds": 50})"}, {"--plugins", pluginFolder()});
        ASSERT_TRUE(waitForRequests(endpoint(), GetParam().position));
        sendSignal(SIGTERM);
        expectPlayed(waitForEnd());
    }

    /// What the cashier does afterwards, up to the outcome that is expected.
    QByteArrayList repetition() const
    {
        const QByteArray subtotalKey = R"({"key": "F6"})";
        const QByteArray& command = isRegistration() ? subtotalKey : cashier::cancelsTheDocument;
        if (!isRegistration() && GetParam().end.moment == Moment::Orderly) {
            return {cashier::isIdle}; // the command was carried out to its end
        }
        QByteArrayList steps;
        if (const QByteArray found = foundAfter(GetParam()); !found.isEmpty()) {
            steps.append(cashier::reads(found));
        }
        steps.append(cashier::findsTheDocument);
        if (expectedIn(GetParam()) == "blocked") {
            return steps + QByteArrayList{cashier::tries(command, ""), cashier::tries(command, "")};
        }
        return steps + (isRegistration() ? QByteArrayList{cashier::subtotal, cashier::pays}
                                         : QByteArrayList{cashier::cancelsTheDocument, cashier::isIdle});
    }

    /// In the words of the table; what is neither is "out of step".
    QString resultNow()
    {
        const QStringList held = validDispenses();
        const QStringList known = registeredBy(savedDocument().isEmpty() ? finished(1) : savedDocument());
        const QString state = finished(1)["state"].toString();
        if (state.isEmpty()) {
            return u"blocked"_s;
        }
        const qsizetype due = isRegistration() ? 3 : 0;
        if (state != (isRegistration() ? "closed" : "cancelled") || known.size() != due) {
            return u"out of step"_s;
        }
        return held == known ? u"in step"_s : held.size() == due + 1 ? u"booked twice"_s : u"out of step"_s;
    }

    static inline QMap<QString, QString> results; ///< of the cells that were played, by their names
};

TEST_P(KillTable, cell_isThatOfThePage)
{
    endWithinTheCommand();
    if (HasFatalFailure()) {
        return;
    }
    expectPlayed(playSteps(repetition(), {"--plugins", pluginFolder()}));
    const QString result = resultNow();
    results.insert(QString::fromStdString(nameOf(GetParam())), HasFailure() ? u"failed"_s : result);
    EXPECT_EQ(result, expectedIn(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(, KillTable, ::testing::ValuesIn(cellsToPlay()),
                         [](const auto& instance) { return nameOf(instance.param); });

TEST(KillTablePage, everyRow_isThatOfTheTest)
{
    QFile page(QString::fromUtf8(RELIABILITY_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(page.readAll()).split(u'\n');
    for (const Request request : {Request::Registration, Request::Cancellation}) {
        for (const End& end : ends) {
            const QString row = rowOf(request, end, expectedIn);
            EXPECT_TRUE(lines.contains(row)) << qPrintable(row);
        }
    }
}

} // namespace
