// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include <unistd.h>

/** A file descriptor that is closed with the object. */
class Descriptor
{
public:
    /** Takes what open(2) has answered; a negative number is no descriptor. */
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
    /** Gives the number away; whoever takes it closes it. */
    int release() { return std::exchange(m_number, -1); }
    /** False when an error of earlier writing has come up only now. */
    bool close() { return ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};
