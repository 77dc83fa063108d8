#include "doubles/modeloVisores.h"

#include <gtest/gtest.h>

#include <random>

namespace sorvanel {
namespace {

TEST(ModeloVisores, loQueSeVeEsLoUltimoTomadoYNoPorMuchoTiempo) {
    for (unsigned semilla = 1; semilla <= 20; ++semilla) {
        std::minstd_rand azar(semilla);
        ModeloVisores modelo([&](unsigned n) { return static_cast<unsigned>(azar() >> 8U) % n; });
        int paso = 0;
        try {
            for (; paso < 300; ++paso) modelo.paso();
        } catch (const std::logic_error& e) {
            ADD_FAILURE() << "seed " << semilla << ", step " << paso << ": " << e.what();
        }
    }
}

}  // namespace
}  // namespace sorvanel
