#pragma once

#include <map>
#include <memory>
#include <utility>

namespace sorvanel {

// What was handed out and is still there, by its number.
template <typename T>
struct Anotados : std::map<int, T*> {
    T* uno(int clave) const {
        const auto it = this->find(clave);
        return it == this->end() ? nullptr : it->second;
    }
};
template <typename T>
using Registro = std::shared_ptr<Anotados<T>>;

// Takes itself off the list when it goes.
template <typename T>
class Anotado : public T {
public:
    Anotado(Registro<T> registro, int clave) : m_registro(std::move(registro)), m_clave(clave) {
        (*m_registro)[clave] = this;
    }
    ~Anotado() override { m_registro->erase(m_clave); }

private:
    Registro<T> m_registro;
    int m_clave;
};

}  // namespace sorvanel
