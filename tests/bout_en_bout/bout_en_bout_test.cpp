// Entry point of the tests that look at windows.

#include <gtest/gtest.h>

#include "tests/bout_en_bout/Poste_Windows.h"

int main(int Nombre, char** Arguments) {
  Preparer_Session();
  testing::InitGoogleTest(&Nombre, Arguments);
  return RUN_ALL_TESTS();
}
