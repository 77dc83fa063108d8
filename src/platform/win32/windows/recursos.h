/* Numbers of the program's resources, for the resource compiler and for the code. */
#ifndef SORVANEL_RECURSOS_H
#define SORVANEL_RECURSOS_H

/* The first icon of the file is the one that Explorer shows. */
#define IDI_SORVANEL 1
#define IDC_MARCHA 2

#endif
