#include "links/destinoPavona.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "PAVONA";
constexpr std::int32_t PORT_OMISION = 9084;

}  // namespace

DestinoPavona leerDestinoPavona(const comun& com) {
    const AccesorINI ini = com.abrir(SECCION);
    return {com.valDflt(ini, "Host", "localhost"), com.valDflt(ini, "Port", PORT_OMISION)};
}

void guardarHostPavona(const comun& com, std::string_view host) {
    com.abrir(SECCION).escribir("Host", host);
}

void guardarPortPavona(const comun& com, std::int32_t port) {
    com.abrir(SECCION).escribir("Port", std::to_string(port));
}

}  // namespace sorvanel
