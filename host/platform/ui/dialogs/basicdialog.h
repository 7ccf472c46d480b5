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
    /// The outcome of a dialog.
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

    /// Shows the form of an event and blocks, in an event loop, until the form has answered with action 187. The form
    /// is gone when this returns.
    ///
    /// @param overPayment the form stays above the customer's display
    /// @param silent no sound
    /// @param sources where input may come from. Without EInput::Scanner the Return of a scan does not reach the form,
    /// except for a field that takes scans itself (ScanRecognizer::recognizesScans). It never presses a button
    /// @return the arguments of the answer as a map. A form that ends without an answer of its own answers -1 under
    /// "data" and "status", and is canceled()
    ///
    /// Throws BasicException when no form creator knows the event, and whatever the form's constructor throws.
    virtual Result show(bool overPayment, bool silent, QFlags<EInput::Source> sources, Event event);
};

} // namespace core
