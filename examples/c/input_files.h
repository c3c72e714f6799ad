#ifndef INPUT_FILES_H
#define INPUT_FILES_H

#include "alignment.h"

/* Exit codes, as orvex-align has them. */
enum { EXIT_WITHIN_RANGE, EXIT_OUT_OF_RANGE, EXIT_NOT_MEASURED, EXIT_UNFIT_FILE, EXIT_WRONG_USAGE = 64 };

/* Ends the program: which file, what is wrong with it, what to do. */
_Noreturn void Refuse(const char* szFile, const char* szWhat, const char* szToDo);

/* Both read into memory from malloc, or refuse the file. */
Picture ReadPgm(const char* szFile);
unsigned char* ReadCalibration(const char* szFile);

#endif
