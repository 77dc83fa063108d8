// From a frame to the weight's text, and to the painted display, on a surface that does nothing. The counter
// `memoria` tells how many times memory was asked for in each round: in steady state none.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <new>
#include <string>

#include "display/familia.h"
#include "display/formatoPeso.h"
#include "display/pinturaVisor.h"
#include "display/trama.h"

namespace {

long g_peticiones = 0;

}  // namespace

// Not inlined: the compiler would see malloc and free meet new and delete.
[[gnu::noinline]] void* operator new(std::size_t tamano) {
    ++g_peticiones;
    void* const lugar = std::malloc(tamano > 0 ? tamano : 1);
    if (lugar == nullptr) throw std::bad_alloc();
    return lugar;
}
[[gnu::noinline]] void operator delete(void* lugar) noexcept {
    std::free(lugar);
}
[[gnu::noinline]] void operator delete(void* lugar, std::size_t) noexcept {
    std::free(lugar);
}

namespace sorvanel {

namespace {

const std::array<std::string, 4> TRAMAS{"XNZ+00012345", "XCZ+01234567", "XND+00000000", "ECD+99999900"};

class SuperficieNula : public Superficie {
public:
    void colocar(const Rectangulo& lugar) override { m_lugar = lugar; }
    Rectangulo lugar() const override { return m_lugar; }
    void mostrar(bool) override {}
    bool visible() const override { return true; }
    bool hasDC() const override { return true; }
    void colorFondo(Color) override {}
    Color colorFondo() const override { return BLANCO; }
    void limpiar() override {}
    void fuente(const Fuente& fuente) override { m_alto = fuente.alto; }
    MedidaTexto medir(std::string_view texto) const override {
        return {m_alto * 0.55F * static_cast<float>(texto.size()), m_alto * 1.15F, m_alto * 0.2F, m_alto * 0.92F};
    }
    void imprimir(float, float, std::string_view texto, Color) override { benchmark::DoNotOptimize(texto.data()); }
    void caja(const Rectangulo& zona, Color) override { benchmark::DoNotOptimize(zona.x); }
    void poligono(std::span<const Punto> vertices, Color) override { benchmark::DoNotOptimize(vertices.data()); }
    void imprimirEn(const Rectangulo&, float, float, std::string_view, Color) override {}
    void cambiarTexto(const Rectangulo&, Color, float, float, std::string_view, Color) override {}
    void desplazar(float) override {}
    float pixel() const override { return TWIPS_POR_PIXEL; }
    void leyenda(std::string_view texto) override { benchmark::DoNotOptimize(texto.data()); }
    void sugerencia(std::string_view) override {}
    void refrescar() override {}

private:
    Rectangulo m_lugar;
    float m_alto = 0;
};

AspectoVisor aspecto(const char* formato) {
    AspectoVisor aspecto;
    aspecto.etiqueta = "Silo 1";
    aspecto.anchoEtiqueta = 2;
    aspecto.formato = formato;
    return aspecto;
}

void contarMemoria(benchmark::State& estado, long antes) {
    estado.counters["memoria"] = static_cast<double>(g_peticiones - antes) / static_cast<double>(estado.iterations());
}

void BM_tramaATexto(benchmark::State& estado) {
    const FormatoPeso formato("0000.0");
    std::string texto(32, ' ');
    std::size_t i = 0;
    const long antes = g_peticiones;
    for ([[maybe_unused]] auto vuelta : estado) {
        const auto trama = leerTrama(TRAMAS[i++ % TRAMAS.size()]);
        if (trama) formato.escribir(trama->milesimas, texto);
        benchmark::DoNotOptimize(texto.data());
    }
    contarMemoria(estado, antes);
}
BENCHMARK(BM_tramaATexto);

void BM_tramaAPintura(benchmark::State& estado) {
    SuperficieNula etiqueta, peso;
    PinturaVisor pintura(etiqueta, peso);
    if (!pintura.encajar({0, 0, 12000, 3000}, aspecto("0000.0 kg"))) return estado.SkipWithError("does not fit");
    for (const std::string& texto : TRAMAS)
        pintura.pintarPeso(leerTrama(texto).value_or(Trama{}), FAMILIA_PAVONA.marcas);
    std::size_t i = 0;
    const long antes = g_peticiones;
    for ([[maybe_unused]] auto vuelta : estado) {
        const auto trama = leerTrama(TRAMAS[i++ % TRAMAS.size()]);
        if (trama) pintura.pintarPeso(*trama, FAMILIA_PAVONA.marcas);
    }
    contarMemoria(estado, antes);
}
BENCHMARK(BM_tramaAPintura);

}  // namespace

}  // namespace sorvanel
