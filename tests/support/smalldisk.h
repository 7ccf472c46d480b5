// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

#include <sys/resource.h>

/// No file of this process may grow beyond some bytes while it lives: to whoever writes one, the disk is full.
class SmallDisk
{
public:
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
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    void (*m_formerHandler)(int);
    rlimit m_former{};
};
