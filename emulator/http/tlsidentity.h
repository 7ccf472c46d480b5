// SPDX-License-Identifier: MIT
#pragma once

#include <QSslConfiguration>

namespace emulator
{
/// The server side's TLS configuration (TLS 1.2 or newer) from PEM files: the certificate with the chain that follows
/// it, and its RSA or EC key without a passphrase. Throws EmulatorError when one of them cannot be used.
QSslConfiguration tlsIdentity(const QString& certificateFile, const QString& keyFile);
} // namespace emulator
