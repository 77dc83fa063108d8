#include "links/destinoPavona.h"

#include "config/comun.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "PAVONA";
constexpr std::int32_t PORT_OMISION = 9084;

}  // namespace

DestinoPavona leerDestinoPavona(const Entorno& entorno) {
    const comun com(entorno);
    const AccesorINI ini = com.abrir(SECCION);
    return {com.valDflt(ini, "Host", "localhost"), com.valDflt(ini, "Port", PORT_OMISION)};
}

void guardarHostPavona(const Entorno& entorno, std::string_view host) {
    comun(entorno).abrir(SECCION).escribir("Host", host);
}

void guardarPortPavona(const Entorno& entorno, std::int32_t port) {
    comun(entorno).abrir(SECCION).escribir("Port", std::to_string(port));
}

}  // namespace sorvanel
