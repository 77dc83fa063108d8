#pragma once

namespace sorvanel::medidas {

// Each prints its part of the table; `veces` is the number of runs over which the medians are, of the soak the millions
// of readings. Each throws when something does not come that the measure stands on, and answers false when what was
// measured shows a fault.
bool medirArranque(int veces);
bool medirCaudal(int veces);
bool medirBanda(int veces);
bool medirReconexion(int veces);
bool medirHerramienta(int veces);
bool medirAsas(int veces);
bool medirRemojo(int veces);

}  // namespace sorvanel::medidas
