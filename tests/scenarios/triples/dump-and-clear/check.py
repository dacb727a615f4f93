for name, wanted in (("linked-tmprels.0", open("tmprels.0").read()), ("tmpdeps.0", open("one.deps").read()),
                     ("second-tmprels.1", "c\t \tfreq\t2\nc\t \tinvFreq\t0\nc\tr\t \t2\n"), ("second-tmpdeps.1", "")):
    assert open(name).read() == wanted, name
