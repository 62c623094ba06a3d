// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <csignal>

#include <sys/resource.h>

/** As long as it lives, no file grows beyond `size` bytes, as on a disk that is full; programs started meanwhile inherit that. */
class FullDisk
{
public:
    explicit FullDisk(rlim_t size)
    {
        // As a signal, it would end the program; ignored, the write fails.
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
