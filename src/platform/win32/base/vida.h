#pragma once

#include <memory>

namespace sorvanel {

// Whether an object still lives: for who calls what may destroy it. Whoever is in a call of such an
// object takes a witness first, and touches the object afterwards only if that still answers yes.
class Vida {
public:
    class Testigo {
    public:
        explicit operator bool() const { return !m_senal.expired(); }

    private:
        friend class Vida;
        explicit Testigo(const std::shared_ptr<char>& senal) : m_senal(senal) {}
        std::weak_ptr<char> m_senal;
    };

    Vida() = default;
    Vida(const Vida&) = delete;
    Vida& operator=(const Vida&) = delete;

    Testigo testigo() const { return Testigo(m_senal); }
    // At the beginning of a destructor, before anything is called from it.
    void terminar() { m_senal.reset(); }

private:
    std::shared_ptr<char> m_senal = std::make_shared<char>();
};

}  // namespace sorvanel
