"""Trees that are cut off, nested without end, tied into rings, or made of very long texts."""
long = "x" * 100000
blocks = [
    "atom ( () ) ((a)) ((a (b c) d e)) (((a) b)) (1 2 3)",
    "(" * 1000000 + ")" * 1000000,
    "(:id ring 1 (a ~ N 2) 2 (b ~ N 3) 3 (c ~ N 1) 4 (d ~ N 4) 5 (e ~ N 5 x))",
    "(:id far (a ~ N < b) (b ~ N >>> a) (c ~ N ><> a) (d ~ N <x> a) (e ~ N - nobody) (f ~ N <))",
    f"(:id long {long} ({long} {long} {long} * {long} ({long} {long}) (text {long}) (ante {long})) (b ~ N {long}))",
    "(:id same 1 (a ~ N * x) 1 (b ~ N 1 x) 1 (c ~ N 1))",
    "(:id props (a ~ N * (number) (number x) (number 99999999999999999999) (text) (text (a b)) (texts) (texts ((a) b)) (ante) (ante (1)) (ante 1) (()) () (w) (w x) (atts) (atts x) (gov)))",
    "(:id " + "(w ~ N > w x (text a))" * 40000 + ")",
    "(:id cut (a ~ N * x) (b ~ N > a (text \"c",
]
with open("trees.txt", "w") as out:
    out.write("\n".join(blocks))
