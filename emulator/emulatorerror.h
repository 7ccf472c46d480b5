// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <stdexcept>

namespace emulator
{
/// Something that the emulator was given and cannot use: a port, a file, a seed. The message is for whoever runs it.
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
    QString m_message; // whole: what() ends at the first NUL
};
} // namespace emulator
