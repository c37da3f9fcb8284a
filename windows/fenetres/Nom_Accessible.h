#pragma once
// Names for screen readers, where neither the control's text nor a label before it gives one.

#include <windows.h>

#include <string>

/// A system that has no such service is left as it is.
void Donner_Nom_Accessible(HWND Controle, const std::wstring& Nom);
