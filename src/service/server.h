// The service over HTTP: the page at /, and the functions of Api under their names.
#pragma once

#include <string>

#include "service/api.h"

namespace torvane {

struct ServiceChoice {
  GrammarChoice grammar;
  std::string host = "127.0.0.1";
  int port = 8080;          ///< 0: one that is free
  std::size_t threads = 0;  ///< that parse; 0: one a core
  RequestLimits limits;
};

/// Serves until a signal asks for the end; writes the address to standard output once it listens.
/// Gives the status of the process, after a message if that is not 0.
int run_service(const ServiceChoice& choice);

}  // namespace torvane
