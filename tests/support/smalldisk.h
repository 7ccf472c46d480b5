// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

/// A full disk for this process while it lives: no file can grow beyond some bytes.
class SmallDisk
{
public:
    /// @param bytes the greatest size of a file
    explicit SmallDisk(rlim_t bytes)
        : m_formerHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit small{bytes, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerHandler);
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

private:
    void (*m_formerHandler)(int);
    rlimit m_former{};
};
