import sys

if open("tmprels.0").read() != open("linked-tmprels.0").read():
    sys.exit("the dumps differ")
if open("tmpdeps.0").read() != open("one.deps").read():
    sys.exit("tmpdeps.0 is " + open("tmpdeps.0").read())
if open("second-tmpdeps.1").read() != "a\tr\tb\t1\na\ts\tC\t2\nb\t-r\ta\t1\nC\t-s\ta\t2\n":
    sys.exit("second-tmpdeps.1 is " + open("second-tmpdeps.1").read())
