// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include <unistd.h>

/** A file descriptor that the destructor closes. */
class Descriptor
{
public:
    /** Takes the result of open(2). A negative number stands for no descriptor. */
    explicit Descriptor(int number = -1)
        : m_number(number)
    { }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor(Descriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    { }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    /** Releases the descriptor without closing it; the caller must close it. */
    int release() { return std::exchange(m_number, -1); }
    /** False when an earlier write failed and the system reports it only now. */
    bool close() { return ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};
