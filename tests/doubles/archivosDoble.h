#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/archivos.h"

namespace sorvanel {

// A disk in memory. Paths are joined with '/'.
class ArchivosDoble : public Archivos {
public:
    // What a test may set.
    bool fallarEscritura = false;          // reemplazar() answers false and changes nothing
    bool fallarLectura = false;            // leer() answers empty, also for what is there
    std::set<std::string> rutasQueFallan;  // the same as fallarEscritura, for these alone

    // What a test may look at.
    int reemplazos = 0;  // successful ones
    int intentos = 0;    // all of them
    int lecturas = 0;
    std::set<std::string> carpetas;

    // Another program writes the file: no replacement is counted, the stamp changes.
    void poner(const std::string& ruta, std::string contenido) { m_archivos[ruta] = {std::move(contenido), ++m_hora}; }
    void quitar(const std::string& ruta) { m_archivos.erase(ruta); }
    bool existe(const std::string& ruta) const { return m_archivos.count(ruta) != 0; }
    // Empty for a missing file.
    std::string contenido(const std::string& ruta) const {
        const auto it = m_archivos.find(ruta);
        return it == m_archivos.end() ? std::string() : it->second.contenido;
    }
    std::size_t cuantos() const { return m_archivos.size(); }

    std::optional<std::string> leer(const std::string& ruta) override {
        ++lecturas;
        if (fallarLectura || !existe(ruta)) {
            return std::nullopt;
        }
        return contenido(ruta);
    }
    bool reemplazar(const std::string& ruta, std::string_view nuevo) override {
        ++intentos;
        if (fallarEscritura || rutasQueFallan.count(ruta) != 0) {
            return false;
        }
        ++reemplazos;
        poner(ruta, std::string(nuevo));
        return true;
    }
    std::optional<SelloArchivo> sello(const std::string& ruta) override {
        const auto it = m_archivos.find(ruta);
        if (it == m_archivos.end()) {
            return std::nullopt;
        }
        return SelloArchivo{it->second.contenido.size(), it->second.hora};
    }
    bool borrar(const std::string& ruta) override { return m_archivos.erase(ruta) != 0; }
    bool crearCarpeta(const std::string& ruta) override {
        carpetas.insert(ruta);
        return true;
    }
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
};

}  // namespace sorvanel
