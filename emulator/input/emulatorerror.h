// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

namespace emulator
{
/// The emulator cannot use what it was given: a port, a file, a seed, an admin request. The message is for the person
/// who runs the emulator.
class EmulatorError : public std::runtime_error
{
public:
    explicit EmulatorError(const QString& message)
        : std::runtime_error(message.toStdString())
        , m_message(message)
    {
    }

    QString message() const { return m_message; }

private:
    QString m_message; // what() ends at the first NUL, this does not
};
} // namespace emulator
