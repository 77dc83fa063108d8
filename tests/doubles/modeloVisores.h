#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "display/visores.h"
#include "doubles/entornoDoble.h"
#include "doubles/superficieDoble.h"
#include "doubles/ventanaDoble.h"
#include "links/frTCP.h"

namespace sorvanel {

// Displays of both families with their links, to which network, operator, screen and clock do what they like. What is
// read off the surfaces is compared with what was sent: only the last weight that the display took, and not for long.
class ModeloVisores {
public:
    using Azar = std::function<unsigned(unsigned)>;  // some number below that one

    explicit ModeloVisores(Azar azar) : m_azar(std::move(azar)) {
        for (int n = 1; n <= CUANTOS; ++n) uno(n).definir(m_parrilla, puesto(n).etiqueta, puesto(n).peso);
        std::string errores;
        m_visores.ubicar(errores);
        exigir(errores.empty(), errores);
    }

    // Throws std::logic_error when a display shows what it should not.
    void paso() {
        using Acto = void (ModeloVisores::*)();
        constexpr std::array<Acto, 13> ACTOS{
            &ModeloVisores::pesarUDP, &ModeloVisores::pesarUDP, &ModeloVisores::pesarTCP, &ModeloVisores::pesarTCP,
            &ModeloVisores::abrir,    &ModeloVisores::estorbar, &ModeloVisores::perder,   &ModeloVisores::caja,
            &ModeloVisores::marcha,   &ModeloVisores::paro,     &ModeloVisores::colocar,  &ModeloVisores::fallar,
            &ModeloVisores::cambiar};
        (this->*ACTOS[m_azar(ACTOS.size())])();
        avanzar(m_azar(3) == 0 ? m_azar(3000) : 0);
        comprobarTodo();
    }

private:
    static constexpr int CUANTOS = 4, TESSEL = 2;  // the first two have ports of their own

    struct Puesto {
        std::vector<std::string> diario;
        SuperficieDoble etiqueta{"E", &diario}, peso{"P", &diario};
        std::map<std::string, std::int64_t> enviados;  // weights that may be on the screen, and since when
        std::string texto;                             // what is there, read off what was painted
        int rayas = 0;
        bool incierto = false;  // a painting threw, and none has been completed since
        bool hoyFalla = false;  // in this step
        std::int64_t fallo = 0;
    };

    static void exigir(bool cierto, const std::string& si_no) {
        if (!cierto) throw std::logic_error(si_no);
    }
    // What is painted may throw: that is the caller's to bear.
    template <typename Accion>
    static void intentar(Accion accion) {
        try {
            accion();
        } catch (const std::runtime_error&) {
        }
    }
    visor& uno(int n) { return *m_visores.uno(static_cast<std::int16_t>(n)); }
    Puesto& puesto(int n) { return m_puestos[static_cast<std::size_t>(n - 1)]; }
    std::int64_t ahora() const { return m_e.reloj.ahora(); }
    ZocaloDoble* suyo() { return m_e.fabrica.enPuerto(3001 + static_cast<std::int32_t>(m_azar(TESSEL))); }
    bool enSesion() const {
        return m_enlace.estado() == frTCP::Estado::abierta || m_enlace.estado() == frTCP::Estado::leyendo;
    }

    // ---- what is sent: each weight in both halves of its digits, so that no two halves make another ----
    struct Peso {
        std::string cifras, texto;  // as sent, eight characters; as shown
    };
    Peso peso(const char* forma) {
        if (m_azar(3) != 0) m_ultimo = m_ultimo % 999 + 1;
        char cifras[32], texto[32];
        std::snprintf(cifras, sizeof cifras, forma, m_ultimo, m_ultimo);
        std::snprintf(texto, sizeof texto, "%d.%03d", m_ultimo, m_ultimo);
        return {cifras, texto};
    }
    // It was taken for certain, unless its painting threw, or its cell has become too small.
    void debe(int n, const std::string& texto) {
        Puesto& p = puesto(n);
        mirar(p);
        if (!p.hoyFalla && uno(n).ubicado()) {
            exigir(p.texto == texto && p.peso.visible(), "not shown: " + texto + " by " + std::to_string(n));
            p.enviados.clear();
        }
        p.enviados[texto] = ahora();
    }
    // Whole, or in two pieces: after a second of silence nothing is left of what was not whole by then.
    void llegar(ZocaloDoble& zocalo, const std::string& linea, const std::string& texto, std::vector<int> quienes) {
        std::erase_if(quienes, [this](int n) { return !uno(n).Run() || !uno(n).ubicado(); });
        if (m_azar(2) == 0) {
            zocalo.llegar(linea);
            for (const int n : quienes) debe(n, texto);
            return;
        }
        const std::size_t corte = 2 + m_azar(static_cast<unsigned>(linea.size() - 3));
        const std::int64_t pausa = m_azar(2000);
        zocalo.llegar(linea.substr(0, corte));
        avanzar(pausa);
        for (const int n : quienes)
            if (pausa < 1000) puesto(n).enviados[texto] = ahora();
        zocalo.llegar(linea.substr(corte));
    }
    void pesarUDP() {
        ZocaloDoble* const zocalo = suyo();
        if (zocalo == nullptr) return;
        const Peso nuevo = peso("%05d%03d");
        llegar(*zocalo, "\r" + std::string(m_azar(2) == 0 ? "XNZ+" : "ECX+") + nuevo.cifras + "\r", nuevo.texto,
               {zocalo->puerto() - 3000});
    }
    // Of the displays' address or of another. A minus sign is nothing to show, unless the other value is the display's.
    void pesarTCP() {
        if (!enSesion()) return abrir();
        const bool menos = m_azar(4) == 0, ajena = m_azar(4) == 0;
        const Peso nuevo = peso("%04d.%03d");
        const std::string primero = menos ? "-" + nuevo.cifras.substr(1) : nuevo.cifras;
        llegar(m_zocalo, (ajena ? "\r07/42 -D " : "\r12/03 C- ") + primero + " " + nuevo.cifras + "\r\n", nuevo.texto,
               ajena   ? std::vector<int>{}
               : menos ? std::vector{4}
                       : std::vector{3, 4});
    }
    void abrir() {
        m_zocalo.conectado();
        avanzar(m_azar(1000));
        m_zocalo.llegar("LIN>");
        avanzar(m_azar(1000));
        if (m_enlace.estado() == frTCP::Estado::esperaSegundo) m_zocalo.llegar("XXX>");
    }
    // What is no weight, again and again for some seconds.
    void estorbar() {
        static const char* const BASURA[] = {"?",    "XNZ-00010001\r", "\r",      "XNX+0009",
                                             "34\r", "12/03 C- 00",    "+\r\r\n", "99/01 -- 0001.001 0000.000\r"};
        ZocaloDoble* const zocalo = m_azar(2) == 0 ? suyo() : &m_zocalo;
        for (unsigned veces = zocalo != nullptr ? m_azar(30) : 0; veces > 0; --veces) {
            zocalo->llegar(BASURA[m_azar(8)]);
            avanzar(m_azar(900));
            comprobarTodo();
        }
    }
    // Also what is told of a connection that is gone already.
    void perder() {
        const bool una = m_azar(2) == 0;
        if (m_zocalo.abierto()) {
            una ? m_zocalo.fallar() : m_zocalo.cerrarse();
        } else {
            una ? m_zocalo.oyente().alConectar() : m_zocalo.oyente().alLlegarDatos();
        }
    }

    // ---- the clock, the operator, the screen ----
    void avanzar(std::int64_t milisegundos) {
        m_e.reloj.avanzar(milisegundos);
        m_conTics += milisegundos;
    }
    // No timer has its turn for a while; what comes is heard.
    void caja() {
        m_e.reloj.saltar(m_azar(15000));
        m_conTics = 0;
        pesarUDP();
        pesarTCP();
    }
    void marcha() {
        std::string errores;
        intentar([&] { m_visores.letsRun(errores); });
    }
    void paro() {
        for (int n = 1; n <= CUANTOS; ++n) {
            intentar([&] { uno(n).Run(false); });
            exigir(!uno(n).Run(), "still running: " + std::to_string(n));
        }
    }
    void colocar() {
        const std::pair<int, int> medidas[] = {{1920, 1080}, {800, 900}, {64, 64}};
        const auto [ancho, alto] = medidas[m_azar(3)];
        m_e.monitores.lista[0].area = {0, 0, ancho, alto};
        m_parrilla.recargar(m_e.pantalla());
        for (int n = 1; n <= CUANTOS; ++n) intentar([&] { uno(n).reubicar(); });
    }
    void fallar() {
        Puesto& p = puesto(1 + static_cast<int>(m_azar(CUANTOS)));
        (m_azar(4) == 0 ? p.etiqueta : p.peso).fallarEn(1 + static_cast<int>(m_azar(12)));
    }

    // Also where that shows nothing new.
    void cambiar() {
        intentar([&] { uno(1 + static_cast<int>(m_azar(CUANTOS))).colorFondoPeso(static_cast<Color>(m_azar(2))); });
    }

    // ---- what is seen ----
    void mirar(Puesto& p) {
        for (const std::string& linea : std::exchange(p.diario, {})) {
            const std::string que = linea.substr(3);
            if (que == "falla") {
                p.incierto = p.hoyFalla = true;
                p.fallo = ahora();
            } else if (linea.starts_with("P")) {
                if (que.starts_with("limpiar") || que.starts_with("caja 0 0 ")) p.texto.clear(), p.rayas = 0;
                if (que.starts_with("imprimir") && p.rayas == 0)
                    p.texto = que.substr(que.find('"') + 1, que.rfind('"') - que.find('"') - 1);
                if (que.starts_with("caja") && que.ends_with("#FF0000")) ++p.rayas;
                if (que.starts_with("leyenda")) p.incierto = false;
            }
        }
    }
    void comprobarTodo() {
        for (int n = 1; n <= CUANTOS; ++n) comprobar(n, puesto(n), uno(n));
        exigir(m_zocalo.estaConectando() == (m_enlace.estado() == frTCP::Estado::conectando), "connecting, or not");
    }
    void comprobar(int n, Puesto& p, const visor& v) {
        mirar(p);
        p.hoyFalla = false;
        const std::string aqui = "display " + std::to_string(n) + " shows '" + p.texto + "'";
        if (!v.ubicado() || !v.Run()) p.enviados.clear();
        if (!p.incierto) {
            exigir(p.peso.visible() == v.ubicado(), aqui + ": visible, or not");
            exigir(p.rayas == 0 || (p.rayas == 5 && p.texto.empty()), aqui + " and dashes");
            const std::string dicho = p.peso.textoLeyenda();
            exigir(dicho.substr(0, dicho.find(p.rayas == 0 ? "," : ".")) == (p.rayas == 0 ? p.texto : "sin datos"),
                   aqui + " and says " + dicho);
            exigir(!v.ubicado() || v.Run() || dicho.empty(), aqui + " and does not run");
        }
        if (p.texto.empty() || !v.ubicado() || !v.Run()) return;
        const auto enviado = p.enviados.find(p.texto);
        exigir(enviado != p.enviados.end() || p.incierto, aqui + ", which is not its last");
        const std::int64_t desde =
            std::max(enviado != p.enviados.end() ? enviado->second : 0, p.incierto ? p.fallo : 0);
        const std::int64_t limite = n <= TESSEL ? 4000 : 11000;
        exigir(m_conTics < 1000 || ahora() - desde <= limite, aqui + " for " + std::to_string(ahora() - desde) + " ms");
    }

    Azar m_azar;
    EntornoDoble m_e;
    const int m_listo =
        (m_e.ini("[RETICULA]\r\nFilasColumnas=2x2\r\n[VISORES]\r\nformatoPeso=0.000\r\n"
                 "[VISOR_1]\r\nPort=3001\r\nUbicacion=1,1\r\n[VISOR_2]\r\nPort=3002\r\nUbicacion=1,2\r\n"
                 "[VISOR_3]\r\nProtocolo=Pavona\r\nPort=1203\r\nModoBulk=0\r\nUbicacion=2,1\r\n"
                 "[VISOR_4]\r\nProtocolo=Pavona\r\nPort=1203\r\nModoBulk=1\r\nUbicacion=2,2\r\n"),
         0);
    frTCP m_enlace{m_e.com, m_e.fabrica, m_e.reloj};
    ZocaloDoble& m_zocalo = *m_e.fabrica.ultimoZocalo();
    SuperficieDoble m_lienzo;
    VentanaDoble m_ventana;
    Parrilla m_parrilla{m_e.com, m_e.pantalla()};
    const int m_definida = (m_parrilla.definir(m_lienzo, m_ventana), 0);
    std::array<Puesto, CUANTOS> m_puestos;
    Visores m_visores{m_e.com, m_e.fabrica, m_e.reloj, m_enlace};
    std::int64_t m_conTics = 0;  // milliseconds since the last time without
    int m_ultimo = 1;
};

}  // namespace sorvanel
