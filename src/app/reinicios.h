#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sorvanel {

// After a crash or an update the system starts the program again. One that crashes at once would do so for ever:
// three times in ten minutes are enough. How often it was is handed from one run to the next in the arguments.
class Reinicios {
public:
    static constexpr std::int64_t PLAZO = 600;  // seconds
    static constexpr std::size_t MAXIMO = 3;

    // The arguments of this run, and the moment of its start in seconds of whatever epoch, the same in each run. What
    // cannot be read there counts for nothing.
    Reinicios(std::string_view argumentos, std::int64_t inicio);

    // Whether the system itself has started this run.
    bool reiniciado() const { return m_reiniciado; }
    // For how long, in seconds from the start, it must not be started again; 0: it may be.
    std::int64_t espera() const;
    // The arguments for the run that follows on this one.
    std::string argumentos() const;

private:
    std::int64_t m_inicio;
    bool m_reiniciado = false;
    std::vector<std::int64_t> m_veces;  // those that still count, the oldest first
};

}  // namespace sorvanel
