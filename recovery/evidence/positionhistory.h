// SPDX-License-Identifier: MIT
#pragma once

#include "dispenserequest.h"

#include <QList>
#include <QString>

#include <optional>

class GoodsItem;

/// What the position and the journal together say of a position's dispense.
class PositionHistory
{
public:
    enum class Known {
        Nothing,    ///< the registry holds no dispense of the position, as far as answers say
        Registered, ///< it holds dispense()
        Cancelled,  ///< it held dispense(), which was cancelled
    };

    /// @param document of the position: AbstractDocument::identifier()
    /// @param requests of all documents, in the order in which they went out
    PositionHistory(const GoodsItem& position, const QString& document, const QList<DispenseRequest>& requests);

    /// As of the last answer.
    Known known() const { return m_known; }
    /// The registry's id; empty: there is none, or the registry did not give it.
    QString dispense() const { return m_dispense; }
    /// True when the position says what the last answer says.
    bool isOnDocument() const;
    /// The request whose outcome only the registry knows; empty: there is none.
    const std::optional<DispenseRequest>& open() const { return m_open; }
    /// An answer was lost, whatever has become known since.
    bool hasLostAnswer() const { return m_hasLostAnswer; }
    /// The ids of all the position's requests.
    const QList<qint64>& requests() const { return m_requests; }

private:
    struct OfDocument {
        QString document;
        QString prescription;
        QString dispense;
        double doses;
        bool isRegistered;
    };

    bool isAbout(const DispenseRequest& request) const;
    void take(const DispenseRequest& request);
    void takeRegistration(const DispenseRequest& request);
    void takeCancellation(const DispenseRequest& request);

    OfDocument m_position;
    Known m_known;
    QString m_dispense;
    std::optional<DispenseRequest> m_open;
    bool m_hasLostAnswer = false;
    QList<qint64> m_requests;
};
