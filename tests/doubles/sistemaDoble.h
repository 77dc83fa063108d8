#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/monitor.h"
#include "platform/programa.h"
#include "platform/sistema.h"

namespace sorvanel {

class ProgramaDoble : public Programa {
public:
    std::string nombre = "Sorvanel";
    std::string base = "/datos";
    std::string separador = ",";
    mutable int carpetas = 0;  // how often the folder was asked for

    std::string nombreEjecutable() const override { return nombre; }
    std::string carpetaBase() const override {
        ++carpetas;
        return base;
    }
    std::string separadorDecimal() const override { return separador; }
    Version version() const override { return {1, 0, 1}; }
    bool hayManual = true;
    mutable std::vector<std::string> manuales;  // the sections that were asked for
    bool abrirManual(const std::string& apartado) const override {
        manuales.push_back(apartado);
        return hayManual;
    }
    // Latin, Thai, kana and keycap.
    bool esMarca(char32_t c) const override {
        return (c >= 0x0300 && c <= 0x036F) || (c >= 0x0E31 && c <= 0x0E4E && c != 0x0E32 && c != 0x0E33) ||
               c == 0x3099 || c == 0x20E3;
    }
};

// One primary monitor of 1024 by 768 at 100 % until the test says otherwise.
class MonitoresDoble : public SistemaMonitores {
public:
    std::vector<Monitor> lista{{{0, 0, 1024, 768}, {0, 0, 1024, 728}, true, "\\\\.\\DISPLAY1", 15, 15}};

    int veces = 0;  // enumerated

    std::vector<Monitor> enumerar() override {
        ++veces;
        return lista;
    }
};

class CursorDoble : public Cursor {
public:
    PuntoPixel punto;

    PuntoPixel posicion() const override { return punto; }
    void posicion(PuntoPixel nuevo) override { punto = nuevo; }
};

class AvisosDoble : public Avisos {
public:
    std::vector<std::string> textos;
    std::vector<std::string> informaciones;
    std::function<void(const std::string&)> alMostrar;  // what happens while the box is open
    int cerrados = 0;                                   // boxes that were open and not answered by anybody

    void critico(const std::string& texto) override {
        textos.push_back(texto);
        m_abierto = true;
        if (alMostrar) alMostrar(texto);
        m_abierto = false;
    }
    void cerrar() override { cerrados += std::exchange(m_abierto, false) ? 1 : 0; }
    void informacion(const std::string& texto) override { informaciones.push_back(texto); }

private:
    bool m_abierto = false;
};

// Keeps what was posted until the test lets it run.
class ColaDoble : public Cola {
public:
    void despues(std::function<void()> accion) override { m_acciones.push_back(std::move(accion)); }

    std::size_t pendientes() const { return m_acciones.size(); }
    // All of them, also those posted meanwhile. False when they never end.
    bool ejecutar() {
        for (int i = 0; i < 10'000 && !m_acciones.empty(); ++i) {
            const std::function<void()> accion = std::move(m_acciones.front());
            m_acciones.pop_front();
            accion();
        }
        return m_acciones.empty();
    }

private:
    std::deque<std::function<void()>> m_acciones;
};

class ReposoDoble : public Reposo {
public:
    bool impedido = false;
    void impedir(bool si) override { impedido = si; }
};

}  // namespace sorvanel
