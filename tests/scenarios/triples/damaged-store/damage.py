"""Makes copies of the store, each with one of its bytes changed, and runs that use them all."""
whole = open("two.db", "rb").read()
end = int.from_bytes(whole[:4], "big")
name_end = 48 + whole[47]
runs = []
# The number of buckets and the comparison's name are passed over: a comparison that nobody knows
# ends the process. Of a row of zeros the first ones will do.
for at in [*range(16, 44), *range(name_end, end)]:
    if not any(whole[at - 5:at + 1]):
        continue
    value = (0, 0xff, whole[at] ^ 1, whole[at] ^ 0x80)[at % 4]
    open(f"bad{at}.db", "wb").write(whole[:at] + bytes([value]) + whole[at + 1:])
    open(f"bad{at}.hdr", "w").write(f"bad{at}.db 64 7 strcasecmp")
    runs.append(f"(link-file db bad{at}.hdr {'rw' if at % 8 == 0 else ''}) (st db a b C r s :output out) (dump db out)\n"
                f"(dump-tripledb db out out2) (merge-tripledbs memory db)\n"
                f"(populate-tripledb db two.txt two.deps) (del-tripledb-entry db two.deps)\n"
                f"(unlink-file db)\n")
open("runs.lsp", "w").write("".join(runs))
