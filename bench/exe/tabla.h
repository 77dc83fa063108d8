#pragma once

#include <string>
#include <vector>

namespace sorvanel::medidas {

// The middle one, or the mean of the two middle ones; 0 of none.
double mediana(std::vector<double> valores);
double mayor(const std::vector<double>& valores);

void titulo(const std::string& texto);
// One line: what it is, what the program took, what the measure beside it took, their ratio. All are medians
// over the given runs; `unidad` follows both. A measure of 0 has no ratio.
void fila(const std::string& nombre, const std::vector<double>& programa, const std::vector<double>& desnudo,
          const char* unidad);
// One line without a measure beside it: the median, and the smallest and largest of the runs.
void fila(const std::string& nombre, const std::vector<double>& valores, const char* unidad);
void nota(const std::string& texto);

}  // namespace sorvanel::medidas
