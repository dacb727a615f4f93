"""The rows in the file."""
want = """\
subj	sing	boy
det	boy	the
mod	sing	in
pcomp	in	boston
conj	boston	london
obj	buy	what
aux	buy	did
subj	buy	boy
det	boy	the
mod	buy	boston
case	boston	in
conj	boston	london
case	london	in
"""
rows = open("rows.txt").read()
assert rows == want, rows
