"""Puts a frame with a UDP datagram for 198.51.100.1, port 162, on the wire "far".

Argument: what is odd about it. "sender": it comes from an address to which answers would go another
way; "checksum": that of UDP is wrong; "fragment": the rest of it never comes.
"""
import socket
import struct
import sys

IPV4 = 0x0800
# Of the two ends of the wire.
NEAR = b"\x02\0\0\0\0\x01"
FAR = b"\x02\0\0\0\0\x02"


def checksum(data):
    total = sum(struct.unpack(f"!{len(data) // 2}H", data))
    while total >> 16:
        total = (total & 0xFFFF) + (total >> 16)
    return ~total & 0xFFFF


def packet(oddity):
    source = socket.inet_aton("203.0.113.9" if oddity == "sender" else "198.51.100.9")
    target = socket.inet_aton("198.51.100.1")
    payload = b"not SNMP"
    udp_length = 8 + len(payload)
    wrong = 0x1234 if oddity == "checksum" else 0  # 0 is none
    udp = struct.pack("!HHHH", 40000, 162, udp_length, wrong) + payload
    flags = 0x2000 if oddity == "fragment" else 0
    fields = [0x45, 0, 20 + len(udp), 7, flags, 64, socket.IPPROTO_UDP, 0, source, target]
    layout = "!BBHHHBBH4s4s"
    fields[7] = checksum(struct.pack(layout, *fields))
    return struct.pack(layout, *fields) + udp


wire = socket.socket(socket.AF_PACKET, socket.SOCK_RAW)
wire.bind(("far", 0))
wire.send(NEAR + FAR + struct.pack("!H", IPV4) + packet(sys.argv[1]))
