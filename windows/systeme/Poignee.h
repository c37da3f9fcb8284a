#pragma once
// Windows handles that close themselves.

#include <windows.h>

#include <memory>

struct Fermer_Poignee {
  using pointer = HANDLE;
  void operator()(HANDLE Ouverte) const { CloseHandle(Ouverte); }
};
using Poignee = std::unique_ptr<void, Fermer_Poignee>;

/// For the calls that answer INVALID_HANDLE_VALUE: the failure becomes an empty handle.
inline Poignee Prendre_Poignee(HANDLE Obtenue) {
  return Poignee(Obtenue == INVALID_HANDLE_VALUE ? nullptr : Obtenue);
}
