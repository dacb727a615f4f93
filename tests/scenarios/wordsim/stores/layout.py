# A store of one bucket, written from the description of the format.
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
