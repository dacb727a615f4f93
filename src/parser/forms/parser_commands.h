// The commands that make and drive a parser, and the forms that its grammar is written in.
#pragma once

namespace torvane {

class World;

/// Commands and expressions of the parser, all those below but `init-attributes`.
void register_parser_commands(World& world);

/// `init-attributes`.
void register_init_attributes(World& world);
/// The commands that build the network.
void register_grammar_commands(World& world);
/// `def-torvane-parser`, `show-attributes`, `set-reldb`, `set-deps-modifier`, `output-tree`.
void register_parser_definition(World& world);
/// The forms that read and change items.
void register_p_item_forms(World& world);
/// The forms that look at the words around an item.
void register_word_walk_forms(World& world);
/// The forms on lexical items and word positions, and the functions of lexical rules.
void register_lexitem_forms(World& world);

}  // namespace torvane
