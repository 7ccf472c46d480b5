// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialog.h"
#include "event.h"
#include "mockfactory.h"

#include <QList>
#include <QMetaType>
#include <QString>

/// A dispense that the registry holds and that may be the one whose answer was lost. Texts as they are shown.
struct DispenseChoiceRow {
    QString handedOver; ///< the time, or the day when the registry shows no time
    QString doses;
    QString pharmacy;
    QString id; ///< empty: the registry does not show it
};

/// The dispense whose answer was lost, and what the registry holds of its prescription. Texts as they are shown.
struct DispenseChoiceParams {
    QString goods;
    QString prescription;
    QString doses;
    QString sent; ///< when the request went out
    QList<DispenseChoiceRow> dispenses;

    /// The event that shows the form; it carries this struct as "params".
    static constexpr auto eventCode = EActivityListener::Event(501);
};

Q_DECLARE_METATYPE(DispenseChoiceParams)

/// What the cashier decided.
struct DispenseChoice {
    enum Kind {
        Later,      ///< nothing is decided
        NoneOfThem, ///< the registry does not hold the dispense
        Chosen,     ///< the registry holds it: it is a row of the list
        HeldUnseen, ///< the registry holds it, and shows the till nothing; only where the list is empty
    } kind = Later;
    int row = -1; ///< in DispenseChoiceParams::dispenses; -1 unless chosen
};

/// Lets the cashier say which dispense is theirs.
///
/// There is no Q_OBJECT because `MockFactory` is the first base.
class DispenseChoiceDialog : public MockFactory<DispenseChoiceDialog>, public core::BasicDialog
{
public:
    explicit DispenseChoiceDialog(QObject* parent = nullptr);

    /// Shows the list and blocks, in an event loop, until it is answered. However the form ends without an answer of
    /// the cashier, it is DispenseChoice::Later. Exceptions of the form, for example for a layout that lacks a widget,
    /// pass through.
    virtual DispenseChoice ask(const DispenseChoiceParams& params);
};
