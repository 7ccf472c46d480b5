// SPDX-License-Identifier: MIT
#pragma once

#include "einput.h"
#include "event.h"
#include "export.h"

#include <QObject>
#include <QVariant>

namespace core
{

/// Shows a form and waits for its answer.
class REGISTERPLATFORM_EXPORT BasicDialog : public QObject
{
    Q_OBJECT

public:
    /// What came of a dialog.
    class Result
    {
    public:
        Result(const QVariant& data = {}, bool isCanceled = false)
            : m_data(data)
            , m_canceled(isCanceled)
        {
        }

        /// The answer's arguments as a QVariantMap, or a text for the text input.
        QVariant getData() const { return m_data; }
        bool canceled() const { return m_canceled; }
        void setCanceled() { m_canceled = true; }
        /// No data, or an empty text.
        bool isEmpty() const
        {
            return !m_data.isValid() || (m_data.metaType().id() == QMetaType::QString && m_data.toString().isEmpty());
        }

    private:
        QVariant m_data;
        bool m_canceled;
    };

    explicit BasicDialog(QObject* parent = nullptr);
    ~BasicDialog() override;

    /// Has the form creators make the form of `event`, shows it, and returns when the form has answered with action
    /// 187: its arguments as a map. The form is gone then. A form without an answer of its own (closed by the
    /// register) answers -1 under "data" and "status", and is canceled().
    ///
    /// Throws BasicException when no creator knows the event; what a form's constructor throws passes through.
    ///
    /// @param overPayment keep the form above the customer's display
    /// @param silent no sound
    /// @param sources where input may come from; without EInput::Scanner the Return that ends a scan is kept from the
    /// form, except from a field whose form tells scans itself (ScanRecognizer::recognizesScans). It never presses a
    /// button
    virtual Result show(bool overPayment, bool silent, QFlags<EInput::Source> sources, Event event);
};

} // namespace core
