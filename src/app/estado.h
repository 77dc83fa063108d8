#pragma once

namespace sorvanel {

enum class Estado { iniciando = 0, configurando = 1, pausa = 2, marcha = 3 };

}  // namespace sorvanel
