#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/opcionesConcentrador.h"
#include "simulador/red.h"
#include "simulador/reproduccion.h"
#include "simulador/sesion.h"

namespace sorvanel::simulador {

// Told of what happens, with moments since the run's start.
class TestigoConcentrador {
public:
    virtual ~TestigoConcentrador() = default;
    virtual void alEscuchar(Instante cuando, const std::string& donde) = 0;
    virtual void alCallar(Instante cuando) = 0;
    virtual void alFallar(Instante cuando, const std::string& motivo) = 0;
    virtual void alLlegar(Instante cuando, std::int64_t sesion, const std::string& quien) = 0;
    virtual void alRecibir(Instante cuando, std::int64_t sesion, std::string_view datos) = 0;
    virtual void alEnviar(Instante cuando, std::int64_t sesion, std::string_view datos) = 0;
    virtual void alTerminar(Instante cuando, std::int64_t sesion, std::string_view motivo,
                            const CuentaSesion& cuenta) = 0;
};

struct ResumenConcentrador {
    std::int64_t sesiones = 0;
    CuentaSesion cuenta;   // of all sessions together
    bool escucho = false;  // at some time
    bool fallo = false;    // the first time it tried to
    Instante tiempo{};
};

// Runs the concentrator until the options' end or the user's. When the port cannot be had at first, the
// run ends at once, with `fallo`; later it is tried again.
class Concentrador {
public:
    Concentrador(const OpcionesConcentrador& opciones, std::uint64_t semilla, Red& red, Reloj& reloj,
                 TestigoConcentrador& testigo);

    ResumenConcentrador correr();

private:
    bool termina() const;
    bool ausente() const;
    // False when it has to give up.
    bool atenderPuerto();
    void atender(const Suceso& suceso);
    void avanzar();
    // True if the session goes on.
    bool avanzar(std::int64_t numero, Sesion& sesion);
    void terminar(std::int64_t numero, std::string_view motivo);
    Instante espera() const;

    const OpcionesConcentrador& m_opciones;
    std::uint64_t m_semilla;
    Red& m_red;
    Reloj& m_reloj;
    TestigoConcentrador& m_testigo;
    Faltas m_sinFaltas;
    std::map<std::int64_t, Sesion> m_sesiones;
    Instante m_comienzo{};
    Instante m_ahora{};  // since the start
    Instante m_reintento{};
    bool m_escucha = false;
    std::int64_t m_terminadas = 0;
    ResumenConcentrador m_resumen;
};

// In Spanish, a line each.
std::string textoResumen(const ResumenConcentrador& resumen);

// For people: what cannot be seen stands as \r, \n, \t or \xHH.
std::string visible(std::string_view datos);

}  // namespace sorvanel::simulador
