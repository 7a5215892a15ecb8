#ifndef SIMULATOR_SANDBOX_INTERPOSE_H
#define SIMULATOR_SANDBOX_INTERPOSE_H

#include "SandboxState.h"

/// Gives a function the name of a C library function. By label and not by declaration, since the C library's headers
/// declare some of them with attributes and inline bodies of their own.
#define SANDBOX_STANDS_FOR(symbol) __asm__(symbol) __attribute__((visibility("default"), used))

/// Declares `real` as the C library's own function of that name.
#define SANDBOX_REAL(type, symbol) static const auto real = reinterpret_cast<type>(sandbox::nextSymbol(symbol))

/// Where this call returns to: inside its caller.
#define SANDBOX_CALLER __builtin_return_address(0)

#endif
