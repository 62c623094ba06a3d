// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <systemd/sd-bus.h>

/**
 * Floods the helper with requests, as fast as the bus takes them:
 *   busflood CONNECTIONS MESSAGES BYTES reply|silent
 * Each of the connections sends this many requests to add a source line of this length, and wants answers or not.
 * Answers are not read. Prints "flooded" when the bus has taken everything.
 */

namespace
{
struct Release
{
    void operator()(sd_bus *bus) const { sd_bus_flush_close_unref(bus); }
    void operator()(sd_bus_message *message) const { sd_bus_message_unref(message); }
};

bool send(sd_bus *bus, const std::string &line, bool wantsReply)
{
    sd_bus_message *created = nullptr;
    const int result = sd_bus_message_new_method_call(
        bus, &created, "org.corvana.velt.repo", "/", "org.corvana.velt.repo.Manager", "AddLocalSource");
    const std::unique_ptr<sd_bus_message, Release> message(created);
    uint64_t cookie = 0;
    return result >= 0 && sd_bus_message_append(created, "s", line.c_str()) >= 0
           && sd_bus_message_set_expect_reply(created, wantsReply ? 1 : 0) >= 0
           && sd_bus_send(bus, created, wantsReply ? &cookie : nullptr) >= 0 && sd_bus_flush(bus) >= 0;
}
} // namespace

int main(int argc, char *argv[])
{
    if (argc != 5)
        return EXIT_FAILURE;
    const std::string line(std::strtoul(argv[3], nullptr, 10), 'x');
    const bool wantsReply = std::string(argv[4]) == "reply";
    std::vector<std::unique_ptr<sd_bus, Release>> connections(std::strtoul(argv[1], nullptr, 10));
    for (auto &connection : connections) {
        sd_bus *bus = nullptr;
        if (sd_bus_open_system(&bus) < 0)
            return EXIT_FAILURE;
        connection.reset(bus);
    }
    for (unsigned long i = std::strtoul(argv[2], nullptr, 10); i > 0; --i) {
        for (const auto &connection : connections) {
            // The bus may throw out who does not read what comes.
            if (!send(connection.get(), line, wantsReply))
                return EXIT_FAILURE;
        }
    }
    std::puts("flooded");
}
