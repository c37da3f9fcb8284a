#pragma once
// The processes that run on the operator's PC.

#include <cstdint>
#include <string>
#include <vector>

struct Processus {
  std::uint32_t Id = 0;
  std::string Nom;  ///< executable name as the system reports it, ANSI bytes, at most 259
};

class Liste_Processus {
 public:
  virtual ~Liste_Processus() = default;

  /// Empty when the system gives no snapshot.
  virtual std::vector<Processus> Lister() = 0;

  /// Ends the process with exit code 0; a failure is ignored.
  virtual void Terminer(std::uint32_t Id) = 0;
};
