#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
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
        for (int n = 1; n <= CUANTOS; ++n) {
            Puesto& p = m_puestos[static_cast<std::size_t>(n - 1)];
            m_visores.uno(static_cast<std::int16_t>(n))->definir(m_parrilla, p.etiqueta, p.peso);
        }
        std::string errores;
        m_visores.ubicar(errores);
        exigir(errores.empty(), errores);
    }

    // Throws std::logic_error when a display shows what it should not.
    void paso() {
        const unsigned orden = m_azar(20);
        if (orden < 5) udp();
        if (orden >= 5 && orden < 10) tcp();
        if (orden == 10 || orden == 11) avanzar(m_azar(3000));
        if (orden == 12) caja();
        if (orden == 13) marcha();
        if (orden == 14 && m_azar(3) == 0) paro();
        if (orden == 15) colocar();
        if (orden == 16) retocar();
        if (orden == 17) cambiarPuerto();
        if (orden == 18) ocupar();
        if (orden == 19) fallar();
        for (int n = 1; n <= CUANTOS; ++n) comprobar(n);
        comprobarEnlace();
    }

private:
    static constexpr int CUANTOS = 6, TESSEL = 3;  // the first three have ports of their own
    static constexpr std::size_t LARGO_LINEA = 26;

    struct Puesto {
        std::vector<std::string> diario;
        SuperficieDoble etiqueta{"E", &diario}, peso{"P", &diario};
        std::map<std::string, std::int64_t> enviados;  // weights that may be on the screen, and since when
        std::string texto;                             // what is there, read off what was painted
        int rayas = 0;
        bool incierto = false;  // a painting threw, and none has been completed since
        bool hoyFalla = false;  // in this step
        std::int64_t fallo = 0;
        bool intentado = false;  // asked to start, at a place
    };

    static std::string ajustes() {
        std::string ini = "[RETICULA]\r\nFilasColumnas=4x2\r\n[VISORES]\r\nformatoPeso=0.000\r\ntextoPeso=000000\r\n";
        const char* const propios[CUANTOS] = {
            "Port=3001\r\n",
            "Port=3002\r\n",
            "Port=3003\r\n",
            "Protocolo=Pavona\r\nPort=1203\r\nModoBulk=0\r\n",
            "Protocolo=Pavona\r\nPort=1203\r\nModoBulk=1\r\n",
            "Protocolo=Pavona\r\nPort=742\r\nModoBulk=0\r\n",
        };
        for (int n = 1; n <= CUANTOS; ++n) {
            const std::string lugar = std::to_string((n + 1) / 2) + "," + std::to_string(2 - n % 2);
            ini += "[VISOR_" + std::to_string(n) + "]\r\n" + propios[n - 1] + "Ubicacion=" + lugar + "\r\n";
        }
        return ini;
    }
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
    int cualquiera() { return 1 + static_cast<int>(m_azar(CUANTOS)); }
    std::int64_t ahora() const { return m_e.reloj.ahora(); }
    bool oye(int n) { return uno(n).Run() && uno(n).ubicado(); }

    // ---- what is sent: each weight once, in both halves of its digits, so that no two halves make another ----
    struct Peso {
        std::string cifras, texto;  // as sent, eight characters; as shown
    };
    Peso peso(bool nuevo, const char* forma) {
        if (nuevo) m_ultimo = m_ultimo % 999 + 1;
        char cifras[32], texto[32];
        std::snprintf(cifras, sizeof cifras, forma, m_ultimo, m_ultimo);
        std::snprintf(texto, sizeof texto, "%d.%03d", m_ultimo, m_ultimo);
        return {cifras, texto};
    }
    void puede(int n, const std::string& texto) { puesto(n).enviados[texto] = ahora(); }
    // It was taken for certain, unless its painting threw, or its cell has become too small.
    void debe(int n, const std::string& texto) {
        Puesto& p = puesto(n);
        mirar(p);
        if (!p.hoyFalla && uno(n).ubicado()) {
            exigir(p.texto == texto && p.peso.visible(), "not shown: " + texto + " by " + std::to_string(n));
            p.enviados.clear();
        }
        puede(n, texto);
    }
    std::string resto() {
        const char* const restos[] = {"?",  "XNZ-00010001\r", "\r",      "XNX+0009", "34\r",
                                      "\n", "12/03 C- 00",    "+\r\r\n", "LIN>",     "XXX>"};
        if (m_azar(3) != 0) return restos[m_azar(10)];
        // Without digits no bytes are a weight.
        std::string octetos;
        for (unsigned n = m_azar(40); n > 0; --n) {
            const auto c = static_cast<char>(m_azar(256));
            octetos += c >= '0' && c <= '9' ? '\r' : c;
        }
        return octetos;
    }

    void udp() {
        const int n = 1 + static_cast<int>(m_azar(TESSEL));
        ZocaloDoble* const zocalo = m_e.fabrica.enPuerto(uno(n).port());
        if (zocalo == nullptr) return;
        const Peso nuevo = peso(m_azar(3) != 0, "%05d%03d");
        const std::string trama = (m_azar(2) == 0 ? "XNZ+" : "ECX+") + nuevo.cifras + "\r";
        switch (m_azar(4)) {
            case 0:
                zocalo->llegar("\r" + trama);
                if (oye(n)) debe(n, nuevo.texto);
                break;
            case 1:
                cortada(*zocalo, trama + (m_azar(2) == 0 ? "\n" : ""), trama.size(), [&] { puede(n, nuevo.texto); });
                break;
            case 2:
                zocalo->llegar(resto());
                break;
            default:
                insistir(*zocalo, "XNZ-00010001\r");
        }
    }
    // In two pieces. After a second of silence nothing is left of what was not whole by then.
    template <typename Puede>
    void cortada(ZocaloDoble& zocalo, const std::string& todo, std::size_t entera, Puede puede) {
        const std::size_t corte = 1 + m_azar(static_cast<unsigned>(todo.size() - 2));
        const std::int64_t pausa = m_azar(2) == 0 ? m_azar(1000) : 1000 + m_azar(2000);
        if (!zocalo.llegar(todo.substr(0, corte))) return;
        avanzar(pausa);
        if (pausa < 1000 || corte >= entera) puede();
        zocalo.llegar(todo.substr(corte));
    }
    // The same again and again, for some seconds.
    void insistir(ZocaloDoble& zocalo, const std::string& linea) {
        for (unsigned veces = m_azar(30); veces > 0; --veces) {
            zocalo.llegar(linea);
            avanzar(m_azar(900));
            for (int n = 1; n <= CUANTOS; ++n) comprobar(n);
        }
    }

    void tcp() {
        switch (m_azar(6)) {
            case 0:
            case 1:
                return abrir();
            case 2:
                return lecturas();
            case 3:
                return insistir(m_zocalo, "99/01 -- 0001.001 0000.000\r");
            case 4:
                m_zocalo.llegar(resto());
                return;
            default:
                perder();
        }
    }
    // Also what is told of a connection that is gone already.
    void perder() {
        if (m_zocalo.abierto()) {
            m_azar(2) == 0 ? m_zocalo.fallar() : m_zocalo.cerrarse();
        } else if (m_azar(2) == 0) {
            m_zocalo.oyente().alConectar();
        } else {
            m_zocalo.oyente().alLlegarDatos();
        }
    }
    void abrir() {
        if (m_azar(4) == 0) m_zocalo.cerrarse();
        if (!m_zocalo.conectado()) return;
        avanzar(m_azar(1000));
        m_zocalo.llegar("LIN>");
        avanzar(m_azar(1000));
        if (m_enlace.estado() != frTCP::Estado::esperaSegundo) return;
        if (m_azar(2) == 0) {
            m_zocalo.llegar("XXX>");
            avanzar(m_azar(1000));
        } else {
            lectura("XXX>");
        }
    }
    void lecturas() {
        if (m_enlace.estado() == frTCP::Estado::abierta || m_enlace.estado() == frTCP::Estado::leyendo) lectura("\r");
    }
    // One of both addresses. A minus sign is nothing to show, unless the other value is the display's.
    void lectura(const std::string& antes) {
        const bool menos = m_azar(4) == 0, una = m_azar(2) == 0;
        const Peso nuevo = peso(m_azar(3) != 0, "%04d.%03d");
        const std::string linea = (una ? "12/03 C- " : "07/42 -D ") +
                                  (menos ? "-" + nuevo.cifras.substr(1) : nuevo.cifras) + " " + nuevo.cifras +
                                  (m_azar(2) == 0 ? "\r" : "\r\n");
        std::vector<int> quienes;
        if (!una && !menos) quienes = {6};
        if (una) quienes = menos ? std::vector{5} : std::vector{4, 5};
        std::erase_if(quienes, [&](int n) { return !oye(n); });
        if (antes == "\r" && m_azar(2) == 0) {
            cortada(m_zocalo, linea, LARGO_LINEA, [&] {
                for (const int n : quienes) puede(n, nuevo.texto);
            });
            return;
        }
        m_zocalo.llegar(antes + linea);
        exigir(m_enlace.estado() == frTCP::Estado::leyendo, "no session after " + antes);
        for (const int n : quienes) debe(n, nuevo.texto);
    }

    // ---- the clock ----
    void avanzar(std::int64_t milisegundos) {
        m_e.reloj.avanzar(milisegundos);
        m_conTics += milisegundos;
    }
    // No timer has its turn for a while; what comes is heard.
    void caja() {
        m_e.reloj.saltar(m_azar(15000));
        m_conTics = 0;
        udp();
        tcp();
        avanzar(m_azar(2000));
    }

    // ---- the operator, the screen, other programs ----
    void marcha() {
        for (int n = 1; n <= CUANTOS; ++n) {
            if (!uno(n).Run()) puesto(n).enviados.clear();
            if (uno(n).ubicado()) puesto(n).intentado = true;
        }
        std::string errores;
        intentar([&] { m_visores.letsRun(errores); });
    }
    void paro() {
        for (int n = 1; n <= CUANTOS; ++n) {
            intentar([&] { uno(n).Run(false); });
            exigir(!uno(n).Run(), "still running: " + std::to_string(n));
            puesto(n).enviados.clear();
            puesto(n).intentado = false;
        }
    }
    void colocar() {
        const std::pair<int, int> medidas[] = {{1920, 1080}, {1024, 768}, {800, 900}, {64, 64}};
        const auto [ancho, alto] = medidas[m_azar(4)];
        m_e.monitores.lista[0].area = {0, 0, ancho, alto};
        m_parrilla.recargar(m_e.pantalla());
        for (int n = 1; n <= CUANTOS; ++n) intentar([&] { uno(n).reubicar(); });
    }
    void retocar() {
        visor& v = uno(cualquiera());
        const auto lado = [&](unsigned cuantos) { return static_cast<std::int16_t>(1 + m_azar(cuantos)); };
        intentar([&] {
            if (m_azar(2) == 0) {
                v.colorFondoPeso(m_azar(2) == 0 ? BLANCO : rgb(0, 0, 90));
            } else {
                v.ubicacion(Ubicacion{lado(4), lado(2)});
            }
        });
    }
    void cambiarPuerto() {
        const int n = 1 + static_cast<int>(m_azar(TESSEL));
        const std::int32_t antes = uno(n).port();
        intentar([&] { uno(n).port(3001 + static_cast<std::int32_t>(m_azar(5))); });
        if (uno(n).port() != antes) puesto(n).enviados.clear();
    }
    void ocupar() {
        auto& ocupados = m_e.fabrica.red().ocupados;
        const auto puerto = 3001 + static_cast<std::int32_t>(m_azar(5));
        if (ocupados.erase(puerto) == 0 && m_e.fabrica.enPuerto(puerto) == nullptr) ocupados.insert(puerto);
        m_e.fabrica.red().fallarConectar = m_azar(4) == 0;
    }
    void fallar() {
        Puesto& p = puesto(cualquiera());
        (m_azar(4) == 0 ? p.etiqueta : p.peso).fallarEn(1 + static_cast<int>(m_azar(12)));
    }

    // ---- what is seen ----
    void mirar(Puesto& p) {
        for (const std::string& linea : std::exchange(p.diario, {})) {
            const bool enPeso = linea.starts_with("P");
            const std::string que = linea.substr(3);
            if (que == "falla") {
                p.incierto = p.hoyFalla = true;
                p.fallo = ahora();
            } else if (enPeso) {
                if (que.starts_with("limpiar") || que.starts_with("caja 0 0 ")) p.texto.clear(), p.rayas = 0;
                if (que.starts_with("imprimir"))
                    p.texto = que.substr(que.find('"') + 1, que.rfind('"') - que.find('"') - 1);
                if (que.starts_with("caja") && que.ends_with("#FF0000")) ++p.rayas;
                if (que.starts_with("leyenda")) p.incierto = false;
            }
        }
    }
    void comprobar(int n) {
        Puesto& p = puesto(n);
        const visor& v = uno(n);
        mirar(p);
        p.hoyFalla = false;
        const std::string aqui = "display " + std::to_string(n) + " shows '" + p.texto + "'";
        if (!p.incierto) {
            exigir(p.peso.visible() == v.ubicado(), aqui + ": visible, or not");
            exigir(p.rayas == 0 || (p.rayas == 5 && p.texto.empty()), aqui + " and dashes");
            const std::string dicho = p.peso.textoLeyenda();
            exigir(dicho.substr(0, dicho.find(' ')) == (p.rayas == 0 ? p.texto : "-----"), aqui + " and says " + dicho);
        }
        if (!v.ubicado()) {
            p.enviados.clear();
        } else if (v.Run()) {
            comprobarPeso(n, p, aqui);
        } else if (!p.incierto) {
            exigir(p.texto.empty() && (p.rayas != 0) == p.intentado, aqui + " and does not run");
        }
    }
    void comprobarEnlace() {
        const auto estado = m_enlace.estado();
        exigir(m_zocalo.estaConectando() == (estado == frTCP::Estado::conectando), "connecting, or not");
        exigir(m_zocalo.estaConectado() == (estado >= frTCP::Estado::esperaLinea && estado <= frTCP::Estado::leyendo),
               "connected, or not");
    }
    void comprobarPeso(int n, const Puesto& p, const std::string& aqui) {
        if (p.texto.empty()) return;
        const auto suyo = p.enviados.find(p.texto);
        exigir(suyo != p.enviados.end() || p.incierto, aqui + ", which is not its last");
        const std::int64_t desde = std::max(suyo != p.enviados.end() ? suyo->second : 0, p.incierto ? p.fallo : 0);
        const std::int64_t limite = n <= TESSEL ? 4000 : 11000;
        exigir(m_conTics < 1000 || ahora() - desde <= limite, aqui + " for " + std::to_string(ahora() - desde) + " ms");
    }

    Azar m_azar;
    EntornoDoble m_e;
    const int m_listo = (m_e.ini(ajustes()), 0);
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
