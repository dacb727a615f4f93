// The commands on triple databases: making, filling, merging and dumping them.
#pragma once

#include <string>

#include "shell/irslist.h"
#include "triples/triple_db.h"

namespace torvane {

/// Registers the commands on stores, on triple databases, and the queries and reports over them.
void register_triple_commands(World& world);

/// The database that the first argument names, or null after its message.
TripleDb* take_triple_db(World& world, IRSlist* form);

}  // namespace torvane
