"""The rows in the file."""
want = """\
subj	sing	boy
det	boy	the
obj	buy	what
aux	buy	did
subj	buy	she
mod	buy	boston
case	boston	in
"""
rows = open("rows.txt").read()
assert rows == want, rows
