"""What stands for encrypted data and identifiers: bytes that depend on nothing but their seed."""
import base64
import hashlib
import uuid


def noise(length, *seed):
    return hashlib.shake_256("\0".join(seed).encode()).digest(length)


def identifier(*seed):
    return str(uuid.UUID(bytes=noise(16, "identifier", *seed), version=4))


def chrome_secret(plain, *seed):
    """As long as the browser would make it: a version and whole blocks; nothing for nothing."""
    if not plain:
        return b""
    blocks = len(plain.encode()) // 16 + 1
    return b"v10" + noise(16 * blocks, "chrome", *seed)


def firefox_secret(plain, *seed):
    """The identifier of a key, an algorithm with its starting value, and whole blocks, in DER."""
    blocks = len(plain.encode()) // 8 + 1
    key = bytes.fromhex("f8000000000000000000000000000001")
    algorithm = bytes.fromhex("06082a864886f70d0307")
    return base64.b64encode(_der(0x30, _der(0x04, key)
                                 + _der(0x30, algorithm + _der(0x04, noise(8, "start", *seed)))
                                 + _der(0x04, noise(8 * blocks, "firefox", *seed)))).decode()


def _der(tag, content):
    length = len(content)
    if length < 128:
        return bytes([tag, length]) + content
    digits = length.to_bytes((length.bit_length() + 7) // 8, "big")
    return bytes([tag, 128 + len(digits)]) + digits + content
