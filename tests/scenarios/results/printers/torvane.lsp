; Words that an atom cannot hold: the first printer quotes them, the second its own way.
(load base.lsp)
(p "(" a\b "a\\b" café "\"" "boy)" boys)
