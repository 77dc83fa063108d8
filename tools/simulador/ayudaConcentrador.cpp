#include "simulador/opcionesConcentrador.h"

namespace sorvanel::simulador {

std::string_view textoAyudaConcentrador() {
    return R"(simulador concentrador: hace del concentrador de la familia Pavona, para probar Sorvanel sin él.

Uso: simulador concentrador [opciones]

Espera a sus clientes por TCP. A cada uno lo saluda con «LIN>», espera «REP» y un retorno de
carro, contesta «XXX>» y, una décima de segundo después, le envía lecturas: dirección, carga o
descarga, peso y acumulado.
Cada sesión recibe las mismas lecturas desde la primera. Termina con Ctrl+C.

Dónde y cuánto
  --escucha DÓNDE        «local» (solo este equipo), «todas» o una de sus direcciones (local)
  --puerto N             puerto TCP (9084); con 0, uno libre, que se escribe
  --direcciones LISTA    indicadores e intervalos separados por comas (12/1-12/4)
  --ritmo N              lecturas por segundo de cada dirección, de 0.1 a 1000 (10)
  --tramas N             tras N turnos de cada dirección la sesión calla, sin cerrarse
  --duracion SEGUNDOS    terminar al cabo de ese tiempo
  --sesiones N           terminar cuando hayan acabado N sesiones

Qué lecturas (sin --peso, --barrido ni --contar: básculas que se cargan y se descargan)
  --peso PESO            siempre ese peso; con «direccion», cada una da su número: 12/3, 1203
  --barrido MÍN:MÁX:PASO en cada lectura un paso más, y vuelta a empezar
  --contar               en cada lectura una unidad más de la última cifra
  --acumulado PESO       siempre ese acumulado (el de la báscula; con las tres anteriores, 0)
  --decimales LISTA      de 0 a 4 por dirección (1); «0.» termina en punto; se repite la lista
  --marcas MARCAS        «modelo» (C cargando, D descargando), «azar» o dos letras fijas:
                         C o -; D o -
  --capacidad LISTA, --division LISTA, --ciclo SEGUNDOS   de las básculas, como en --help
  --fin FIN              fin de línea: cr, lf o crlf (cr)

Silencios y avalanchas (los segundos cuentan desde la primera lectura de la sesión)
  --callar LISTA         la dirección número I calla a los S segundos, I:S, o un rato, I:S-S
  --pausas CADA:DURA     cada CADA segundos callan DURA segundos, cada una a su hora;
                         con azar:CADA:DURA, en cualquier momento de cada turno
  --avalancha DESDE:HASTA   entre esos segundos, sin límite de ritmo (60 segundos como mucho)

Faltas de la sesión. MOMENTO es «saludo» (antes de saludar), «rep» (tras recibir REP),
«abierta» (tras XXX>), «lecturas:N» (tras N lecturas) o «media:N» (y media línea más)
  --saludo TEXTO         en vez de LIN>; admite \r \n \t \\ \xHH
  --segundo TEXTO        en vez de XXX>
  --trozos N:SEGUNDOS    los dos avisos de N en N bytes, con esa pausa
  --pegada               la primera lectura va en un mismo envío con XXX>
  --enmudece LISTA       calla en ese MOMENTO para siempre, o MOMENTO:SEGUNDOS y sigue
  --cierra MOMENTO       cierra la conexión
  --reinicia MOMENTO     la corta (RST); lo último enviado puede perderse
  --malas N[:CLASES]     antes de cada N-ésima lectura, una línea mala: media, larga, direccion,
                         marcas, separador, valor (todas, por turno)
  --basura N             antes de cada N-ésima lectura, bytes sin sentido
  --partir N:SEGUNDOS    cada N-ésima lectura, en dos trozos con esa pausa
  --veces N              solo en las N primeras sesiones; las demás van bien

Faltas del puerto (los segundos cuentan desde el arranque)
  --ausente LISTA        DESDE:HASTA, no escucha y corta las sesiones; luego vuelve
  --sin-aceptar          escucha y nunca acepta: el cliente conecta y nadie le habla

Otras
  --semilla N            repite el azar de otra ejecución
  --mostrar              escribe lo que se envía y lo que se recibe
  --help                 esta ayuda

Los decimales van con punto. Las direcciones se numeran desde 1, en el orden de --direcciones.

Ejemplos
  simulador concentrador
      cuatro básculas, de la 12/1 a la 12/4
  simulador concentrador --escucha todas --direcciones 12/1-12/8,13/5 --peso direccion
      en cada visor se lee su dirección: así se comprueba cuál es cuál
  simulador concentrador --direcciones 0/1-0/64 --ritmo 20 --contar --decimales 3
      64 indicadores a 20 lecturas por segundo
  simulador concentrador --saludo LIM> --veces 3
      las tres primeras sesiones saludan mal
  simulador concentrador --reinicia media:100 --ausente 20:25
      corta a mitad de una línea, y a los veinte segundos falta durante cinco

Termina con 0, con 1 si no pudo escuchar o con 2 si una opción no es válida.
)";
}

}  // namespace sorvanel::simulador
