#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/archivos.h"

namespace sorvanel {

// A disk in memory. Paths are joined with '/'.
class ArchivosDoble : public Archivos {
public:
    bool fallarEscritura = false;  // reemplazar() answers false and changes nothing
    std::string rutaIlegible;      // this one is there, but leer() cannot read it
    bool selloIncierto = false;    // and sello() is not allowed to see it
    std::string rutaQueFalla;      // the same as fallarEscritura, for this one alone
    bool aparteLento = false;      // what is replaced beside the one thread ends when it is waited for

    int reemplazos = 0;  // successful ones
    int intentos = 0;    // all of them
    int lecturas = 0;
    int sellos = 0;

    // Another program writes the file: no replacement is counted, the stamp changes.
    void poner(const std::string& ruta, std::string contenido) { m_archivos[ruta] = {std::move(contenido), ++m_hora}; }
    void quitar(const std::string& ruta) { m_archivos.erase(ruta); }
    bool existe(const std::string& ruta) const { return m_archivos.contains(ruta); }
    std::string contenido(const std::string& ruta) const {
        return existe(ruta) ? m_archivos.at(ruta).contenido : std::string();  // empty for a missing file
    }

    Lectura leer(const std::string& ruta) override {
        ++lecturas;
        if (ruta == rutaIlegible) return {.motivo = "retenido"};
        if (!existe(ruta)) return {.ausente = true};
        return {.contenido = contenido(ruta)};
    }
    bool crearVacio(const std::string& ruta) override { return !existe(ruta) && reemplazar(ruta, {}); }
    bool reemplazar(const std::string& ruta, std::string_view nuevo) override {
        ++intentos;
        if (fallarEscritura || ruta == rutaQueFalla) return false;
        ++reemplazos;
        poner(ruta, std::string(nuevo));
        return true;
    }
    void reemplazarAparte(const std::string& ruta, std::string nuevo) override {
        m_aparte = [this, ruta, nuevo = std::move(nuevo)] { return Reemplazo{reemplazar(ruta, nuevo), sello(ruta)}; };
    }
    std::optional<Reemplazo> terminado() override { return aparteLento ? std::nullopt : esperar(); }
    std::optional<Reemplazo> esperar() override {
        return m_aparte ? std::optional(std::exchange(m_aparte, nullptr)()) : std::nullopt;
    }
    SelloArchivo sello(const std::string& ruta) override {
        ++sellos;
        if (ruta == rutaIlegible && selloIncierto) return {Presencia::incierta};
        if (!existe(ruta)) return {};
        return {Presencia::presente, contenido(ruta).size(), m_archivos.at(ruta).hora};
    }
    bool crearCarpeta(const std::string&) override { return true; }
    std::string unir(const std::string& carpeta, const std::string& nombre) const override {
        return !carpeta.empty() && carpeta.back() == '/' ? carpeta + nombre : carpeta + "/" + nombre;
    }

private:
    struct Archivo {
        std::string contenido;
        std::uint64_t hora = 0;
    };
    std::map<std::string, Archivo> m_archivos;
    std::uint64_t m_hora = 0;
    std::function<Reemplazo()> m_aparte;
};

}  // namespace sorvanel
