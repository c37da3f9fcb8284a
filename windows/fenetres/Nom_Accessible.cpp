#include "windows/fenetres/Nom_Accessible.h"

#include <objbase.h>
// After objbase.h, which declares the interfaces that it extends.
#include <oleacc.h>

#include <memory>

namespace {

struct Liberer {
  void operator()(IUnknown* Objet) const { Objet->Release(); }
};

}  // namespace

void Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom) {
  // Never undone: the names live as long as the windows, and so must the library that keeps them.
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return;
  void* Objet = nullptr;
  if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IAccPropServices, &Objet))) {
    return;
  }
  const std::unique_ptr<IAccPropServices, Liberer> Service(static_cast<IAccPropServices*>(Objet));
  Service->SetHwndPropStr(Controle, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                          Nom.c_str());
}
