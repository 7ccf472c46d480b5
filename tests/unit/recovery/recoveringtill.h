// SPDX-License-Identifier: MIT
#pragma once

#include "activitynotifier.h"
#include "clockdouble.h"
#include "configured.h"
#include "dialogdouble.h"
#include "dispensechoicedialog.h"
#include "documentarchive.h"
#include "documentdouble.h"
#include "graphicaluserinterface.h"
#include "inplace.h"
#include "loyaltysystemlayer.h"
#include "mocked.h"
#include "reportprinter.h"
#include "requestjournal.h"
#include "restclient.h"
#include "savingdouble.h"
#include "standingwarning.h"

#include <QJsonObject>
#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <optional>

/// A dispense that the registry shows.
struct ShownDispense {
    QString id; ///< empty: the registry does not show it
    double doses = 10;
    QString day = QString::fromLatin1("2026-03-02");
    QString pharmacy = QString::fromUtf8("Аптека № 17");
};

/// The till and the registry as the plug-in that settles lost answers sees them, on 2 March 2026: documents, journal,
/// answers, messages and questions. Nothing is on the disk but the journal.
class RecoveringTill : public ::testing::Test
{
protected:
    RecoveringTill();
    ~RecoveringTill() override;

    // The till

    /// A document of the till with one position of ten doses of a prescription; the card is in it.
    ///
    /// @param dispense the id of its registered dispense; null: it is not registered
    QSharedPointer<DocumentDouble> document(const QString& name, const QString& prescription,
                                            const QString& dispense = {});
    /// Adds such a position.
    static QSharedPointer<GoodsItem> addPosition(DocumentDouble& document, const QString& prescription,
                                                 const QString& dispense = {});
    static void makeCurrent(const QSharedPointer<AbstractDocument>& document);
    static QJsonObject optionsOf(const AbstractDocument& document, int index = 0);
    static bool isMarked(const AbstractDocument& document, int index = 0);

    // The journal. Each request belongs to the document of that name.

    qint64 registration(const QString& document, const QString& prescription, double doses = 10);
    qint64 cancellation(const QString& document, const QString& dispense);
    /// The registry confirms a registration with that id.
    void confirm(qint64 request, const QString& dispense);
    void confirmCancellation(qint64 request);
    void refuse(qint64 request);
    qsizetype openRequests() const { return journal->object.requests().size(); }
    /// Reads the journal again, as the next start of the register does.
    void restart();

    QStringList messages() const;

    QTemporaryDir folder;
    Configured config;
    ClockDouble clock{QDateTime({2026, 3, 2}, {12, 0})};

    class Archive : public DocumentArchive
    {
    public:
        QList<QSharedPointer<AbstractDocument>> documentsOf(const QDate& day) const override;
        QSharedPointer<AbstractDocument> document(const QString& identifier) const override;

        QMap<QDate, QList<QSharedPointer<AbstractDocument>>> ofDays;
        QList<QSharedPointer<AbstractDocument>> ofNoDay; ///< found by name alone
        mutable int readings = 0;                        ///< of a day
    };
    Own<DocumentArchive, Archive> archive;

    class Warning : public StandingWarning
    {
    public:
        void set(const tr::Tr& text) override { shown = text.ui(); }
        QString shown;
    };
    Own<StandingWarning, Warning> warning;

    class Printer : public ReportPrinter
    {
    public:
        void print(const tr::Tr&, const QStringList& printed) override { lines = printed; }
        QStringList lines;
    };
    Own<ReportPrinter, Printer> printer;

    class Totals : public LoyaltySystemLayer
    {
    public:
        void recalculate(const QSharedPointer<AbstractDocument>& document) override
        {
            if (onRecalculated) {
                onRecalculated(*document);
            }
        }
        std::function<void(const AbstractDocument&)> onRecalculated;
    };
    Own<LoyaltySystemLayer, Totals> totals;

    Own<ActivityNotifier> notifier;
    Own<GraphicalUserInterface> gui;
    DialogDouble dialogs;
    SavingDouble saving;

    /// The cashier's answer to each question which dispense it is, and the questions so far. At first: later.
    DispenseChoice answer;
    QList<DispenseChoiceParams> questions;

    // The registry

    QMap<QString, QList<ShownDispense>> prescriptions; ///< the card's, with their dispenses
    QStringList completed;                             ///< those of which nothing more can be dispensed
    int refusal = 0;                                   ///< the status with which look-ups are refused; 0: none is
    bool isDown = false;
    int lookUps = 0;

    std::optional<Own<RequestJournal>> journal;

private:
    qint64 begin(const QString& document, const QString& path, const QByteArray& body);

    class Registry;
    class Choice;

    Mocked<RestClient> m_client;
    Mocked<DispenseChoiceDialog> m_choice;
};
