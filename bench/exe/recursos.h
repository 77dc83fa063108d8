#pragma once

#include <windows.h>

namespace sorvanel::medidas {

// What a process holds, where Wine's own answers are 0:
// - GDI: the live entries of the process's own handle table, which its PEB points to;
// - USER: the live entries of the session's one table, of all its processes together. The table cannot be read; but
// free
//   entries are used up before it grows, and a new entry shows by its first generation. So what is live is the new
//   entry's index less those that had to be filled before it came;
// - handles: its entries in the system's list of all handles.
long objetosGDI(HANDLE proceso);
long objetosUSER();
long manejadores(HANDLE proceso);

// Makes objects and handles of its own and counts them. False when a count does not follow: then none can be believed.
bool cuentasFiables();

}  // namespace sorvanel::medidas
