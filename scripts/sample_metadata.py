# SPDX-License-Identifier: MIT
"""Writes keywords into pictures: XMP dc:subject, IPTC keywords, and XMP files beside the picture."""

import struct
from xml.sax.saxutils import escape

PACKET_HEAD = '<?xpacket begin="\ufeff" id="W5M0MpCehiHzreSzNTczkc9d"?>\n'
PACKET_TAIL = '<?xpacket end="w"?>'
JPEG_XMP = b"http://ns.adobe.com/xap/1.0/\0"
JPEG_PHOTOSHOP = b"Photoshop 3.0\0"
UTF8_DECLARED = b"\x1b%G"
LATIN1_DECLARED = b"\x1b.A"


def xmp(keywords):
    """The XMP document with the keywords as a bag."""
    items = "".join(f"     <rdf:li>{escape(keyword)}</rdf:li>\n" for keyword in keywords)
    return ('<x:xmpmeta xmlns:x="adobe:ns:meta/">\n'
            ' <rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">\n'
            '  <rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/">\n'
            f'   <dc:subject>\n    <rdf:Bag>\n{items}    </rdf:Bag>\n   </dc:subject>\n'
            '  </rdf:Description>\n </rdf:RDF>\n</x:xmpmeta>\n')


def xmp_packet(keywords):
    return (PACKET_HEAD + xmp(keywords) + PACKET_TAIL).encode()


def iptc(keywords, encoding="utf-8"):
    """The IPTC records: the character set declared, then the keywords in it."""
    records = dataset(1, 90, {"utf-8": UTF8_DECLARED, "latin-1": LATIN1_DECLARED}[encoding])
    return records + b"".join(dataset(2, 25, keyword.encode(encoding)) for keyword in keywords)


def dataset(record, number, value):
    return struct.pack(">BBBH", 0x1C, record, number, len(value)) + value


def photoshop_block(records):
    """The IPTC records as the image resource that JPEG and PSD files hold them in."""
    return b"8BIM" + struct.pack(">HHI", 0x0404, 0, len(records)) + records + (b"\0" if len(records) % 2 else b"")


def jpeg_with(data, keywords_xmp, iptc_records):
    """The JPEG file with its metadata segments placed before the first one that is not of the application's kind."""
    place = 2
    while data[place] == 0xFF and data[place + 1] in (0xE0, 0xE1):
        place += 2 + struct.unpack(">H", data[place + 2:place + 4])[0]
    segments = b""
    if keywords_xmp:
        segments += segment(0xE1, JPEG_XMP + xmp_packet(keywords_xmp))
    if iptc_records:
        segments += segment(0xED, JPEG_PHOTOSHOP + photoshop_block(iptc_records))
    return data[:place] + segments + data[place:]


def segment(marker, payload):
    return struct.pack(">BBH", 0xFF, marker, len(payload) + 2) + payload
