// SPDX-License-Identifier: MIT
#pragma once

#include "findings.h"

namespace doctor
{

class Server;
class TimeLimit;

// What lies below the registry client, from the ground up. Each check builds on what the one before it left in
// `server`, and is made only when that one found nothing wrong. None of them sends a secret.

// connectioncheck.cpp

/// The host's name: its addresses.
Finding checkName(Server& server, const TimeLimit& limit);
/// A connection to the first address that takes one.
Finding checkConnection(Server& server, const TimeLimit& limit);

// tlscheck.cpp

/// TLS 1.2 or newer, and the server's certificate: its chain, its names, its days. It is verified against the system's
/// authorities or, when "RestClient:caFile" is configured, against those of that file alone, as RestClient does.
Finding checkTls(Server& server, const TimeLimit& limit);

// answercheck.cpp

/// A GET of the operation's path without any credentials: an answer in HTTP that no portal gave.
Finding checkAnswer(Server& server, const TimeLimit& limit);

// clockcheck.cpp

/// The till's clock against the header "Date" of that answer (RFC 9110, 6.6.1).
Finding checkClock(Server& server, const TimeLimit& limit);

} // namespace doctor
