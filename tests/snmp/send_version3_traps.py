"""Sends one version 3 trap of each pair of protocols by pysnmp, each from an engine of its own.

Arguments: port, authentication and privacy passphrase. The user of a trap is named after its
protocols, in the words of the SNMP library: "SHA-256AES-192-C".
"""
import sys

from pysnmp import hlapi

DIGESTS = {
    "MD5": hlapi.usmHMACMD5AuthProtocol,
    "SHA": hlapi.usmHMACSHAAuthProtocol,
    "SHA-224": hlapi.usmHMAC128SHA224AuthProtocol,
    "SHA-256": hlapi.usmHMAC192SHA256AuthProtocol,
    "SHA-384": hlapi.usmHMAC256SHA384AuthProtocol,
    "SHA-512": hlapi.usmHMAC384SHA512AuthProtocol,
}
CIPHERS = {
    "DES": hlapi.usmDESPrivProtocol,
    "AES": hlapi.usmAesCfb128Protocol,
    "AES-192": hlapi.usmAesBlumenthalCfb192Protocol,
    "AES-256": hlapi.usmAesBlumenthalCfb256Protocol,
    "AES-192-C": hlapi.usmAesCfb192Protocol,
    "AES-256-C": hlapi.usmAesCfb256Protocol,
}


def send(port, engine_id, user):
    engine = hlapi.SnmpEngine(hlapi.OctetString(hexValue=engine_id))
    target = hlapi.UdpTransportTarget(("127.0.0.1", port))
    notification = hlapi.NotificationType(hlapi.ObjectIdentity("1.3.6.1.6.3.1.1.5.1"))
    error = next(hlapi.sendNotification(
        engine, user, target, hlapi.ContextData(), "trap", notification))[0]
    if error:
        sys.exit(f"{user.userName}: {error}")


def main(port, auth_phrase, priv_phrase):
    pairs = [(digest, cipher) for digest in DIGESTS for cipher in CIPHERS]
    for number, (digest, cipher) in enumerate(pairs):
        user = hlapi.UsmUserData(
            digest + cipher, auth_phrase, priv_phrase, DIGESTS[digest], CIPHERS[cipher])
        send(int(port), f"80000000010203{number:02x}", user)


main(*sys.argv[1:])
