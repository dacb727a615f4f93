long_word = "w" * 100000
rows = ["", "\t\t\t", "one", "one\ttwo\tthree", "\tr\t \t3", "a\t \tfreq", "a\t \tfreq\t",
        "a\t \tfreq\tnone", "a\t \tfreq\t-4", "a\t \tfreq\tinf", "a\t \tinvFreq\tnan",
        "a\t \tfreq\t1e300", "a\t \tclass\t1e38", "a\t \tclass\t2", "a\tr\t \t5\tmore\tfields",
        "a\tr\t \t7", "a\tr\tx\t1", "a\t-r\t \t3", "a\t-\t \t2", "a\t\t \t2", "b\tr\t \t-3",
        "b\tr\t \tinf", "b\tr\t \t1e39", "b\ts\t \t1e38", "b\ts\t \tnan",
        f"{long_word}\t \tfreq\t3", f"{long_word}\t{long_word}\t \t3", f"b\t{long_word}\t \t3",
        "a\t \tfreq\t8", "a\ts\t \t9", "a\tr\t \t10", "A\tt\t \t1", "r\t \tfreq\t5", "s\t \tfreq\t6",
        "b\t-r\t \t4", "b\t-s\t \t4", "c\0d\t \tfreq\t2", "\xff\xfe\t \tfreq\t2", "cr\t \tfreq\t2\r"]
details = rows + ["a\tr\tb\t2", "a\tr\ta\t-2", "a\tr\tb\tinf", "a\tr\tb\tnan", "a\tr\tb\t1e300",
                  "a\ts\tb\t3e38", "a\ts\tb\t3e38", "b\t-r\ta\t4", "a\tr\tb\t1", "b\t-s\ta\t2",
                  f"a\tr\t{long_word}\t5", f"{long_word}\t{long_word}\t{long_word}\t5",
                  f"b\t{long_word}\t{long_word}\t5", "b\t-r\ta", "a\t--r\tb\t2", "a\t-\tb\t2"]
open("rels.txt", "wb").write("\n".join(rows).encode("latin-1"))
open("deps.txt", "wb").write("\n".join(details).encode("latin-1"))
open("store.hdr", "w").write("store.db 32 3 strcmp")
