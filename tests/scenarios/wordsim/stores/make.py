# A store of one bucket, written from the description of the format.
import shutil
import struct


def record(payload):
    blocks = (len(payload) + 8 + 63) // 64
    return (struct.pack(">IHH", len(payload), blocks, 0x5555) + payload).ljust(blocks * 64, b"\0")


def real(value):
    return struct.pack(">f", value)


def table(words):
    return struct.pack(">I", len(words) + 1) + b"".join(word.encode() + b"\0" for word in words)


def similar(pairs, groups=(), desc=1.0):
    packed = struct.pack(">I", len(pairs))
    if pairs:
        packed += real(desc) + real(sum(sim for _, sim in pairs))
    packed += b"".join(struct.pack(">i", word) + real(sim) for word, sim in pairs)
    return packed + struct.pack(">I", len(groups)) + b"".join(groups)


def group(*words):
    return struct.pack(f">H{len(words)}I", len(words), *words)


def store(name, first, records):
    data = b"strcasecmp"
    start = 16 + 4 + 4 + len(data)
    data += data[:1] * (-start % 4)
    start += -start % 4
    body, head = record(first), 0
    for key, value in reversed(records):
        payload = struct.pack(">I", head) + key.encode() + b"\0" + value
        head = start + len(body)
        body += record(payload)
    file = struct.pack(">IIIII", start + len(body), 0, 64, 1, head) + struct.pack(">I", 10) + data + body
    open(name + ".db", "wb").write(file)
    open(name + ".hdr", "w").write(f"{name}.db 64 1 strcasecmp\n")


def make():
    words = ["dog", "cat", "big cat", "fox"]
    none = similar([])
    good = [("dog", similar([(2, 0.75), (3, 0.5), (4, 0.25)], [group(0b101), group(), group(0b100)], 0.5) + none
             + similar([], [group(1)])),
            ("fox", none + similar([(1, 8)]) + none)]
    store("good", table(words), good)
    whole = good[0][1]
    store("damaged", table(words), [
        ("dog", struct.pack(">I", 0xFFFFFFFF) + whole[4:]),
        ("cat", similar([(5, 1)]) + none + none),
        ("big cat", whole[:-3]),
        ("fox", similar([(2, 1)], [struct.pack(">H", 60000)]) + none + none)])
    store("nan", table(words), [("dog", similar([(2, float("nan")), (3, 2)]) + none + none), ("cat", b"")])
    store("other", b"\0\0\0\5these are words\0of another kind", good)
    store("many", struct.pack(">I", 1 << 30) + b"dog\0", good)
    store("add", table(words), good)
    for name in ("good", "other", "many"):
        shutil.copy(name + ".db", name + ".before")


if __name__ == "__main__":
    make()
