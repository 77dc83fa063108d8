# Warnings are errors, for all code of this tree and for no other.
add_library(sorvanel_avisos INTERFACE)
target_compile_options(sorvanel_avisos INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_compile_features(sorvanel_avisos INTERFACE cxx_std_20)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in std::string's operator+ where there are none (GCC bug 105651).
  target_compile_options(sorvanel_avisos INTERFACE -Wno-restrict)
endif()
