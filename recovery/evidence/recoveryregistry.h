// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescriptionexception.h"
#include "electronicprescriptioninterface.h"

/// The registry has answered that it has no such card. Carries its text.
class RefusedCardException : public ElectronicPrescriptionException
{
public:
    explicit RefusedCardException(const tr::Tr& message);
    ~RefusedCardException() override;
};

/// The registry client. For it a card that the registry does not know is another thing than a registry that cannot be
/// asked.
class RecoveryRegistry : public ElectronicPrescriptionInterface
{
public:
    /// Throws RefusedCardException for an OperationOutcome with the status 404 or 410 (RFC 9110, 15.5): the look-up by
    /// card is the only request that this client sends and that can get one.
    void getRequestResult(const QSharedPointer<RestClient>& client, QJsonDocument& result) const override;
};
