// SPDX-License-Identifier: MIT
#include "recoveryregistry.h"

#include "restclient.h"

using namespace Qt::StringLiterals;

namespace
{

bool isNotThere(int status)
{
    constexpr int notFound = 404;
    constexpr int gone = 410;
    return status == notFound || status == gone;
}

} // namespace

RefusedCardException::RefusedCardException(const tr::Tr& message)
    : ElectronicPrescriptionException(message)
{
}

RefusedCardException::~RefusedCardException() = default;

void RecoveryRegistry::getRequestResult(const QSharedPointer<RestClient>& client, QJsonDocument& result) const
{
    try {
        ElectronicPrescriptionInterface::getRequestResult(client, result);
    } catch (const ElectronicPrescriptionException& exception) {
        if (isNotThere(client->errorCode()) && result["resourceType"_L1].toString() == "OperationOutcome"_L1) {
            throw RefusedCardException(exception.tr());
        }
        throw;
    }
}
