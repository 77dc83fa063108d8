#include "estado.h"

#include "escena.h"
#include "harness/red.h"

namespace sorvanel::medidas {

using namespace pruebas;

Estado leerEstado(const std::string& bytes) {
    static const std::string CLAVE = "Etiqueta=";
    Estado estado;
    for (std::size_t inicio = 0; inicio < bytes.size();) {
        std::size_t fin = bytes.find('\n', inicio);
        fin = fin == std::string::npos ? bytes.size() : fin + 1;
        const std::string linea = bytes.substr(inicio, fin - inicio);
        inicio = fin;
        if (!linea.starts_with(CLAVE)) {
            estado.resto += linea;
            continue;
        }
        const std::size_t cifras = linea.find_first_not_of("0123456789", CLAVE.size());
        const bool entera = cifras != std::string::npos && cifras > CLAVE.size() && linea.substr(cifras) == "\r\n";
        estado.numeros.push_back(entera ? std::stoi(linea.substr(CLAVE.size())) : -1);
        estado.resto += CLAVE + "\r\n";
    }
    return estado;
}

void abrirVisores(Programa& programa, const VentanaHerramienta& visores) {
    programa.pulsar(IdControl::botCfg);
    exigir(programa.esperarVisible(IdControl::botOk), "it does not go into configuration");
    programa.pulsar(IdControl::botVisores);
    exigir(visores.esperarAbierta() && visores.esperarControl(IdControl::txEtq, 1), "the displays' tool does not open");
}

void numerar(const VentanaHerramienta& visores, int visor, int numero) {
    const std::string texto = std::to_string(numero);
    visores.escribir(IdControl::txEtq, visor, texto);
    exigir(visores.esperarTexto(IdControl::txEtq, visor, texto), "the caption cannot be typed");
    visores.tecla(IdControl::txEtq, visor, VK_RETURN);
}

void exigirPeso(const Programa& programa, int visor, int puerto, int valor) {
    EmisorUDP indicador;
    exigir(insistir([&] { indicador.enviar(puerto, trama(valor * 1000)); },
                    [&] { return programa.peso(visor) == std::to_string(valor); }),
           "display " + std::to_string(visor) + " does not say " + std::to_string(valor) + " but \"" +
               programa.peso(visor) + "\"");
}

}  // namespace sorvanel::medidas
