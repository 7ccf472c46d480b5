// SPDX-License-Identifier: MIT
#pragma once

#include "pharmacy.h"

#include <functional>
#include <string>
#include <vector>

/// Something that goes wrong with one request, and the message that the cashier gets.
struct Fault {
    enum class Shown : int {
        RegistrysText,   ///< the text of the registry
        Status,          ///< the HTTP client's text about the status
        MayBeCarriedOut, ///< a warning that the request may have been carried out
        OperationsOwn,   ///< the operation's text for an answer that it cannot use
    };

    std::string name;
    std::function<void(emulator::FaultScript&, emulator::Endpoint, emulator::Occasion)> order;
    Shown shown = Shown::MayBeCarriedOut;
    int status = 0;
};

/// Orders the fault for a request to that endpoint.
void order(const Fault& fault, const Pharmacy& pharmacy, emulator::Endpoint endpoint, emulator::Occasion occasion = {});

void PrintTo(const Fault& fault, std::ostream* stream);

/// Faults that keep the registry from carrying out the request.
const std::vector<Fault>& faultsWithoutEffect();
/// The registry has carried out the request, but its answer is lost or useless.
const std::vector<Fault>& lostAnswers();
/// For a client that gives up after a second. The registry carries out the request of the first two.
Fault lateAnswer();
Fault drippingAnswer();
Fault noAnswer();

/// The cashier got exactly one message: that of the fault, as an error.
void expectMessageOf(const Fault& fault, emulator::Endpoint endpoint, const QList<DialogDouble::Message>& shown);

std::string nameOf(emulator::Endpoint endpoint);
