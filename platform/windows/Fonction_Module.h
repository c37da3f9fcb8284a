#pragma once
// Functions that are looked up by name at run time.

#include <windows.h>

/// Null when the module does not have it.
template <typename Fonction>
Fonction* Fonction_Module(HMODULE Module, const char* Nom) {
  // Through void*: the compiler rightly distrusts a direct cast between function types.
  return reinterpret_cast<Fonction*>(reinterpret_cast<void*>(GetProcAddress(Module, Nom)));
}
