// SPDX-License-Identifier: MIT
#pragma once

#include "findings.h"
#include "observedregistry.h"

#include <QString>

namespace doctor
{

/// The registry as a till uses it, while it is looked at. Each check leaves here what the next one builds on.
struct Access {
    ObservedRegistry registry;
    QString authorizationHost; ///< for texts
    QString requestsHost;
    QString card; ///< a test card; empty: none

    RequestOutcome token; ///< what the request for a token came to
    bool hasToken = false;
    bool isStoppedByOais = false; ///< the registry looked at nothing else, since it does not take the OAIS token
};

// What a till asks the registry for, with the plug-in's own client.

/// The token: client, secret, organization, scope (RFC 6749, 4.4).
Finding checkToken(Access& access);
/// The OAIS token, as far as the token request shows.
Finding checkOais(Access& access);
/// The prescriptions of the test card. No finding holds its number, or anything of the patient.
Finding checkCard(Access& access);

} // namespace doctor
