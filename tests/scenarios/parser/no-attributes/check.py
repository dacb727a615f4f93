import re
import sys

errors = open(sys.argv[1] + "/stderr").read()
told = re.findall(r'AttInterpreterList::get_att\("syn", "(\w+)", "\w*"\)\n"syn" is not a type of attribute value vector\n', errors)
assert len(told) == 29 == errors.count("\n") / 2 and {"args", "lexitem", "trace"} <= set(told), errors
