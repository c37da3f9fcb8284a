// What the foreign library of the tests depends on.
extern "C" __declspec(dllexport) int Valeur_Du_Compagnon() {
  return 42;
}
