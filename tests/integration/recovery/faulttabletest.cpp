// SPDX-License-Identifier: MIT
// Every fault at every position, with and without the plug-in that settles lost answers: what the registry and the
// document hold after the command was repeated. The table of docs/reliability.md is what this test finds.

#include "fault.h"
#include "positionformat.h"
#include "positionoptions.h"
#include "recoveringpharmacy.h"
#include "savingdouble.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using emulator::Endpoint;
using emulator::FaultOrder;
using emulator::Occasion;
using Recovery = RecoveringPharmacy::Recovery;

namespace
{

/// What happens to one request.
struct Mishap {
    const char* name; ///< as in the table
    /// What the registry does; empty: nothing goes wrong there.
    std::function<FaultOrder()> fault;
    enum class PowerCut {
        None,
        WithoutAnswer, ///< before anything of an answer reached the till
        BeforeSave,    ///< the answer is in the journal, and the document is not saved
    } powerCut = PowerCut::None;
    bool isOverInTime = true; ///< the registry is done with the request when it is asked
};

FaultOrder faultNamed(const QString& name, bool isCarriedOut = true)
{
    FaultOrder order = FaultOrder::named(name).value();
    order.isCarriedOut = isCarriedOut;
    return order;
}

FaultOrder lateAnswer()
{
    FaultOrder order = faultNamed(u"delay"_s);
    order.delay = 1500ms;
    return order;
}

FaultOrder failureAfterBooking()
{
    FaultOrder order = faultNamed(u"status"_s);
    order.answer->status = 500;
    return order;
}

/// What lies between till and registry answers in its place.
FaultOrder gatewaysAnswer(const QByteArray& contentType, const QByteArray& body)
{
    FaultOrder order = failureAfterBooking();
    order.answer->status = 503;
    order.answer->contentType = contentType;
    order.answer->body = body;
    return order;
}

using PowerCut = Mishap::PowerCut;

const Mishap mishaps[] = {
    {"no answer in time", lateAnswer},
    {"connection reset", [] { return faultNamed(u"reset"_s); }},
    {"connection closed", [] { return faultNamed(u"close"_s); }},
    {"answer cut off", [] { return faultNamed(u"cut"_s); }},
    {"half of the JSON", [] { return faultNamed(u"half-json"_s); }},
    {"a page of HTML", [] { return faultNamed(u"html"_s); }},
    {"500 after booking", failureAfterBooking},
    {"503 after booking, a page of HTML", [] { return gatewaysAnswer("text/html", "<h1>Service Unavailable</h1>"); }},
    {"503 after booking, plain text", [] { return gatewaysAnswer("text/plain", "upstream request timeout"); }},
    {"carried out late", [] { return faultNamed(u"late"_s); }, PowerCut::None, false},
    {"power cut before the request arrives", [] { return faultNamed(u"close"_s, false); }, PowerCut::WithoutAnswer},
    {"power cut after booking", [] { return faultNamed(u"close"_s); }, PowerCut::WithoutAnswer},
    {"power cut after the answer", {}, PowerCut::BeforeSave},
};

/// How much of the prescription a position dispenses.
struct Kind {
    const char* name;
    bool isFinal;
    bool isAll;
};

const Kind kinds[] = {
    {"complete", true, true},
    {"partial, doses left", false, false},
    {"partial, none left", false, true},
};

constexpr double prescribed[] = {20, 60, 30};

struct Cell {
    Endpoint endpoint;
    const Mishap& mishap;
    const Kind& kind;
    int position;
    Recovery recovery;
};

/// The pharmacy of one cell.
class Course
{
public:
    explicit Course(const Cell& cell)
        : m_cell(cell)
        , m_till(cell.recovery, 1)
    {
        for (const int position : everyPosition) {
            QJsonObject options = m_pharmacy.optionsOf(position);
            options[positionformat::doseQuantity] = cell.kind.isAll ? prescribed[position - 1] : 5.0;
            options[positionformat::finalDispense] = cell.kind.isFinal;
            m_pharmacy.setOptions(position, QString::fromUtf8(QJsonDocument(options).toJson()));
        }
        // As the register saves each position when it is added.
        EXPECT_TRUE(SaveToFileLogic::create()->save(m_pharmacy.document(), {}));
    }

    /// What the command, the fault and its repetitions lead to, in the words of the table.
    QString result()
    {
        if (m_cell.endpoint == Endpoint::DispenseCancellation) {
            EXPECT_EQ(command(Endpoint::DispenseRegistration), EContext::GoOn);
        }
        meetWithMishap();
        for (const QString& inStep : {u"in step"_s, u"in step after two"_s}) {
            if (command(m_cell.endpoint) == EContext::GoOn) {
                return isInStep() ? inStep : isTwice() ? u"booked twice"_s : u"out of step"_s;
            }
        }
        return u"blocked"_s;
    }

private:
    EContext::Result command(Endpoint endpoint)
    {
        return endpoint == Endpoint::DispenseRegistration ? m_till.subtotal() : m_till.cancelDocument();
    }

    void meetWithMishap()
    {
        if (m_cell.mishap.fault) {
            FaultOrder order = m_cell.mishap.fault();
            order.endpoint = m_cell.endpoint;
            order.occasion = Occasion::nth(m_cell.position);
            m_pharmacy.order([&order](auto& faults) { faults.order(order); });
        }
        if (m_cell.mishap.powerCut == PowerCut::None) {
            EXPECT_EQ(command(m_cell.endpoint), EContext::Stop);
        } else {
            loseThePower();
            m_till.restart(m_cell.recovery);
        }
        m_pharmacy.order([](auto& faults) { faults.clear(); });
    }

    /// Nothing is saved any more from the moment of the fault.
    void loseThePower()
    {
        m_till.unplug();
        int saved = 0;
        SavingDouble saving;
        saving.onSave = [&](const auto&, const QString&, const SavingDouble::Write& write) {
            if (++saved == m_cell.position) {
                throw std::runtime_error("power cut");
            }
            return write();
        };
        try {
            command(m_cell.endpoint);
            EXPECT_EQ(m_cell.mishap.powerCut, PowerCut::WithoutAnswer);
        } catch (const std::runtime_error&) {
            EXPECT_EQ(m_cell.mishap.powerCut, PowerCut::BeforeSave);
        }
    }

    QList<emulator::Dispense> validDispensesOf(int position) const
    {
        QList<emulator::Dispense> dispenses = m_pharmacy.dispensesOf(position);
        dispenses.removeIf([](const emulator::Dispense& dispense) { return dispense.isCancelled; });
        return dispenses;
    }

    /// The registry holds what the document says, and nothing else.
    bool isInStep() const
    {
        return std::all_of(std::begin(everyPosition), std::end(everyPosition), [this](int position) {
            const PositionOptions options(*m_pharmacy.document()->getPosition(position));
            const auto valid = validDispensesOf(position);
            if (m_cell.endpoint == Endpoint::DispenseCancellation) {
                return valid.isEmpty() && !options.isRegistered();
            }
            return valid.size() == 1 && options.isRegistered() && valid.first().id == options.medicationDispenseId() &&
                   valid.first().quantity == options.doseQuantity();
        });
    }
    bool isTwice() const { return validDispensesOf(m_cell.position).size() > 1; }

    const Cell m_cell;
    RecoveringPharmacy m_till;
    Pharmacy& m_pharmacy = m_till.pharmacy;
};

/// The same at each of the three positions, or each result.
QString resultOf(Endpoint endpoint, const Mishap& mishap, const Kind& kind, Recovery recovery)
{
    QStringList results;
    for (const int position : everyPosition) {
        results.append(Course({endpoint, mishap, kind, position, recovery}).result());
    }
    results.removeDuplicates();
    return results.join(u" / "_s);
}

using Row = std::tuple<Endpoint, Mishap>;

class FaultTable : public testing::TestWithParam<Row>
{
protected:
    static QString resultsWith(Recovery recovery)
    {
        QStringList cells;
        for (const Kind& kind : kinds) {
            cells.append(resultOf(std::get<Endpoint>(GetParam()), std::get<Mishap>(GetParam()), kind, recovery));
        }
        return cells.join(u" | "_s);
    }
    static QString name()
    {
        const QString request =
            std::get<Endpoint>(GetParam()) == Endpoint::DispenseRegistration ? u"registration"_s : u"cancellation"_s;
        return request + ": "_L1 + QString::fromUtf8(std::get<Mishap>(GetParam()).name);
    }
};

TEST_P(FaultTable, row_isThatOfThePage)
{
    const QString with = resultsWith(Recovery::Present);
    if (std::get<Mishap>(GetParam()).isOverInTime) {
        EXPECT_EQ(with, u"in step | in step | in step"_s);
    }
    const QString row = u"| %1 | %2 | %3 |"_s.arg(name(), resultsWith(Recovery::Absent), with);

    QFile page(QString::fromUtf8(RELIABILITY_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(page.readAll()).split(u'\n').contains(row)) << row.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Mishaps, FaultTable,
                         testing::Combine(testing::Values(Endpoint::DispenseRegistration,
                                                          Endpoint::DispenseCancellation),
                                          testing::ValuesIn(mishaps)),
                         [](const auto& test) {
                             return nameOf(std::get<Endpoint>(test.param)) +
                                    QString::fromUtf8(std::get<Mishap>(test.param).name)
                                        .remove(QRegularExpression(u"[^A-Za-z0-9]"_s))
                                        .toStdString();
                         });

} // namespace
