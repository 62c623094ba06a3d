// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <csignal>

#include <sys/resource.h>

/**
 * While it lives, no file can grow beyond `size` bytes, as on a full disk. Programs that are started meanwhile inherit
 * this.
 */
class FullDisk
{
public:
    explicit FullDisk(rlim_t size)
    {
        // By default SIGXFSZ ends the program. When it is ignored, the write fails.
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{size, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_before = {};
};
