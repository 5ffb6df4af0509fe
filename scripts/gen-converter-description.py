#!/usr/bin/env python3
"""Writes xml/ConverterPixelFormat.xml, the register description of the
pixel-format converter (resource id 109).

The 98 entries of DestinationPixelFormat are generated from the format list
below; their tool tips are made from the format names. Run from anywhere:
    scripts/gen-converter-description.py [output path]
"""
import os
import re
import sys

FORMATS = [
    ("Mono1p", 0x01010037), ("Mono2p", 0x01020038), ("Mono4p", 0x01040039), ("Mono8", 0x01080001),
    ("Mono10", 0x01100003), ("Mono10p", 0x010A0046), ("GVSP_Mono10Packed", 0x010C0004), ("Mono12", 0x01100005),
    ("Mono12p", 0x010C0047), ("GVSP_Mono12Packed", 0x010C0006), ("Mono14", 0x01100025), ("Mono14p", 0x010E0104),
    ("Mono16", 0x01100007),
    ("BayerGR4p", 0x0104010D), ("BayerRG4p", 0x0104010E), ("BayerGB4p", 0x0104010F), ("BayerBG4p", 0x01040110),
    ("BayerGR8", 0x01080008), ("BayerRG8", 0x01080009), ("BayerGB8", 0x0108000A), ("BayerBG8", 0x0108000B),
    ("BayerGR10", 0x0110000C), ("BayerRG10", 0x0110000D), ("BayerGB10", 0x0110000E), ("BayerBG10", 0x0110000F),
    ("BayerGR10p", 0x010A0056), ("BayerRG10p", 0x010A0058), ("BayerGB10p", 0x010A0054), ("BayerBG10p", 0x010A0052),
    ("GVSP_BayerGR10Packed", 0x010C0026), ("GVSP_BayerRG10Packed", 0x010C0027),
    ("GVSP_BayerGB10Packed", 0x010C0028), ("GVSP_BayerBG10Packed", 0x010C0029),
    ("BayerGR12", 0x01100010), ("BayerRG12", 0x01100011), ("BayerGB12", 0x01100012), ("BayerBG12", 0x01100013),
    ("BayerGR12p", 0x010C0057), ("BayerRG12p", 0x010C0059), ("BayerGB12p", 0x010C0055), ("BayerBG12p", 0x010C0053),
    ("GVSP_BayerGR12Packed", 0x010C002A), ("GVSP_BayerRG12Packed", 0x010C002B),
    ("GVSP_BayerGB12Packed", 0x010C002C), ("GVSP_BayerBG12Packed", 0x010C002D),
    ("BayerGR14", 0x01100109), ("BayerRG14", 0x0110010A), ("BayerGB14", 0x0110010B), ("BayerBG14", 0x0110010C),
    ("BayerGR14p", 0x010E0105), ("BayerRG14p", 0x010E0106), ("BayerGB14p", 0x010E0107), ("BayerBG14p", 0x010E0108),
    ("BayerGR16", 0x0110002E), ("BayerRG16", 0x0110002F), ("BayerGB16", 0x01100030), ("BayerBG16", 0x01100031),
    ("BGR8", 0x02180015), ("RGB8", 0x02180014), ("BGRa8", 0x02200017), ("RGBa8", 0x02200016),
    ("RGB8_Planar", 0x02180021), ("BGR10", 0x02300019), ("BGRa10", 0x0240004C), ("RGB10_Planar", 0x02300022),
    ("CBGR10p32", 0x82200001), ("RGB10p32", 0x0220001D), ("BGR10p", 0x021E0048), ("RGB10p", 0x021E005C),
    ("BGR12", 0x0230001B), ("BGRa12", 0x0240004E), ("RGB12_Planar", 0x02300023), ("BGR12p", 0x02240049),
    ("RGB12p", 0x0224005D), ("BGR14", 0x0230004A), ("BGRa14", 0x02400050), ("BGR16", 0x0230004B),
    ("RGB16", 0x02300033), ("BGRa16", 0x02400051), ("RGB16_Planar", 0x02300024),
    ("YCbCr411_8", 0x020C005A), ("YCbCr411_8_CbYYCrYY", 0x020C003C), ("YCbCr422_8", 0x0210003B),
    ("YCbCr422_8_CbYCrY", 0x02100043), ("YCbCr8", 0x0218005B), ("YCbCr8_CbYCr", 0x0218003A),
    ("YCbCr601_411_8_CbYYCrYY", 0x020C003F), ("YCbCr601_422_8", 0x0210003E), ("YCbCr601_422_8_CbYCrY", 0x02100044),
    ("YCbCr601_8_CbYCr", 0x0218003D), ("YCbCr709_411_8_CbYYCrYY", 0x020C0042), ("YCbCr709_422_8", 0x02100041),
    ("YCbCr709_422_8_CbYCrY", 0x02100045), ("YCbCr709_8_CbYCr", 0x02180040), ("YUV411_8_UYYVYY", 0x020C001E),
    ("YUV422_8", 0x02100032), ("YUV422_8_UYVY", 0x0210001F), ("YUV8_UYV", 0x02180020),
]

# Always offered; every other entry hangs on the invisible availability switch.
ALWAYS_AVAILABLE = {"Mono8", "BGR8", "BGRa8"}
# Shown under the name of their unpacked relative.
DISPLAY_NAMES = {"BayerGR12p": "BayerGR12", "BayerGR14p": "BayerGR14"}

PHASES = {"GR": "Green Red", "RG": "Red Green", "GB": "Green Blue", "BG": "Blue Green"}


def tooltip(name):
    """A short English description made from the format's name."""
    gvsp = name.startswith("GVSP_")
    core = name[5:] if gvsp else name
    suffix = " GigE Vision specific format." if gvsp else ""
    m = re.fullmatch(r"Mono(\d+)(p|Packed)?", core)
    if m:
        return "Mono %s bit%s.%s" % (m.group(1), " packed" if m.group(2) else "", suffix)
    m = re.fullmatch(r"Bayer(GR|RG|GB|BG)(\d+)(p|Packed)?", core)
    if m:
        return "Bayer %s %s bit%s.%s" % (PHASES[m.group(1)], m.group(2), " packed" if m.group(3) else "", suffix)
    m = re.fullmatch(r"(C?)(BGR|RGB)(a?)(\d+)(p32|p)?(_Planar)?", core)
    if m:
        order = " ".join({"B": "Blue", "G": "Green", "R": "Red"}[c] for c in m.group(2))
        text = "%s%s %s bit" % (order, " Alpha" if m.group(3) else "", m.group(4))
        if m.group(5) == "p32":
            text += " packed into 32 bits"
        elif m.group(5) == "p":
            text += " packed"
        if m.group(6):
            text += " planar"
        if m.group(1):
            text += ", library specific"
        return text + "."
    m = re.fullmatch(r"(YCbCr|YUV)(601_|709_)?(411|422)?_?8(_\w+)?", core)
    if m:
        text = m.group(1)
        if m.group(2):
            text += " BT." + m.group(2)[:3]
        text += " %s 8 bit" % {"411": "4:1:1", "422": "4:2:2", None: "4:4:4"}[m.group(3)]
        if m.group(4):
            text += ", order " + m.group(4)[1:]
        return text + "."
    raise ValueError("no tool tip rule for " + name)


def esc(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def node(kind, name, namespace, elements, indent="  "):
    """One node; elements is a list of (tag, text) pairs or raw strings."""
    out = ['%s<%s Name="%s" NameSpace="%s">' % (indent, kind, name, namespace)]
    for e in elements:
        if isinstance(e, str):
            out.append(e)
        else:
            out.append("%s  <%s>%s</%s>" % (indent, e[0], esc(str(e[1])), e[0]))
    out.append("%s</%s>" % (indent, kind))
    return "\n".join(out)


def reg(kind, name, tip, address, length, access, extra=()):
    elements = [("ToolTip", tip), ("Visibility", "Guru"), ("Address", "0x%04X" % address), ("Length", length),
                ("AccessMode", access), ("pPort", "IPPort")]
    if kind == "IntReg":
        elements.append(("Sign", "Unsigned"))
    elements.append(("Endianess", "LittleEndian"))
    elements.extend(extra)
    return node(kind, name, "Custom", elements)


def enum_entry(name, value, display, tip, description=None, available=None):
    elements = [("ToolTip", tip), ("Description", description or tip), ("DisplayName", display)]
    if available:
        elements.append(("pIsAvailable", available))
    elements.append(("Value", value))
    return node("EnumEntry", name, "Custom", elements, indent="    ")


def build():
    parts = []
    parts.append('<?xml version="1.0" encoding="utf-8"?>')
    parts.append(
        '<RegisterDescription ModelName="KorvaneConverter_PixelFormat" VendorName="Korvane" '
        'ToolTip="Korvane Converter" StandardNameSpace="None" SchemaMajorVersion="1" SchemaMinorVersion="1" '
        'SchemaSubMinorVersion="0" MajorVersion="1" MinorVersion="0" SubMinorVersion="6" '
        'ProductGuid="3D8C1F5A-92B4-4E07-A6D3-5C0E7B19F248" VersionGuid="E71A4C0B-6D25-4F9E-8B13-A2C5D9F03E76" '
        'xmlns="http://www.genicam.org/GenApi/Version_1_1" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" '
        'xsi:schemaLocation="http://www.genicam.org/GenApi/Version_1_1 '
        'http://www.genicam.org/GenApi/GenApiSchema_Version_1_1.xsd">')
    parts.append(node("Category", "Root", "Standard", [
        ("ToolTip", "Filter implementation. "), ("Description", "Root"), ("DisplayName", "Settings"),
        ("Visibility", "Beginner"), ("pFeature", "AnalogControl"), ("pFeature", "ImageFormatControl")]))
    parts.append(node("Category", "AnalogControl", "Standard", [
        ("ToolTip", "Features that control the pixel values."), ("Description", "Analog Control"),
        ("DisplayName", "Analog Control"), ("Visibility", "Beginner"), ("pFeature", "Gamma")]))
    parts.append(node("Category", "ImageFormatControl", "Standard", [
        ("ToolTip", "Features that control the format of the converted image."),
        ("Description", "Image Format Control"), ("DisplayName", "Image Format Control"),
        ("Visibility", "Beginner"), ("ImposedAccessMode", "RO"), ("pFeature", "DestinationPixelFormat"),
        ("pFeature", "BayerInterpolationMethod"), ("pFeature", "ReverseY"), ("pFeature", "BitExpansionMode")]))

    # Gamma and its registers.
    parts.append(node("Float", "Gamma", "Standard", [
        ("ToolTip", "Control the gamma correction of pixel intensity. This feature takes effect when converting "
                    "from 10 or 12 bits pixel format to 8 bits pixel format."),
        ("Description", "Every sample that changes depth is raised to this power, relative to the maximum of its "
                        "format."),
        ("DisplayName", "Gamma"), ("Visibility", "Expert"), ("ImposedAccessMode", "RW"), ("Streamable", "Yes"),
        ("pValue", "GammaReg"), ("pMin", "GammaMinReg"), ("pMax", "GammaMaxReg"), ("Representation", "Linear")]))
    parts.append(reg("FloatReg", "GammaReg", "Current gamma value.", 0x28, 8, "RW"))
    parts.append(reg("FloatReg", "GammaMinReg", "Lower limit of the gamma value.", 0x30, 8, "RO"))
    parts.append(reg("FloatReg", "GammaMaxReg", "Upper limit of the gamma value.", 0x38, 8, "RO"))

    # DestinationPixelFormat with its 98 entries.
    entries = []
    for name, code in FORMATS:
        entries.append(enum_entry(name, "0x%08X" % code, DISPLAY_NAMES.get(name, name), tooltip(name),
                                  available=None if name in ALWAYS_AVAILABLE else
                                  "AvailableUnvisibleDestinationPixelFomat"))
    parts.append(node("Enumeration", "DestinationPixelFormat", "Custom", [
        ("ToolTip", "Pixel format of the converted image."),
        ("Description", "The format that the converter writes into its destination."),
        ("DisplayName", "Destination Pixel Format"), ("Visibility", "Beginner"),
        ("pIsLocked", "DestinationPixelFormatNodeLockReg"), ("ImposedAccessMode", "RW"), ("Streamable", "Yes")]
        + entries + [("pValue", "DestinationPixelFormatReg")]))
    parts.append(reg("IntReg", "DestinationPixelFormatReg", "Code of the destination pixel format.", 0x10, 4, "RW"))
    parts.append(reg("IntReg", "DestinationPixelFormatNodeLockReg",
                     "1 while the destination pixel format may not be changed.", 0x40, 4, "RW",
                     [("Representation", "Boolean")]))
    parts.append(node("Integer", "AvailableUnvisibleDestinationPixelFomat", "Custom", [
        ("ToolTip", "Switches the availability of the less common destination formats."),
        ("Visibility", "Invisible"), ("Value", 1), ("Min", 0), ("Max", 1)]))

    # BayerInterpolationMethod.
    methods = [("OFF", "OFF", "No interpolation: each pixel keeps its own colour only."),
               ("NearestNeighbor", "Nearest Neighbor", "Nearest neighbour interpolation."),
               ("NearestNeighbor2", "Nearest Neighbor 2", "Nearest neighbour interpolation, second variant."),
               ("Bilinear", "Bilinear", "Bilinear interpolation."),
               ("Bilinear2", "Bilinear 2", "Bilinear interpolation with false colour reduction."),
               ("Bicubic", "Bicubic", "Bicubic interpolation.")]
    parts.append(node("Enumeration", "BayerInterpolationMethod", "Custom", [
        ("ToolTip", "Method of the Bayer interpolation."),
        ("Description", "How the missing colours of a Bayer mosaic are computed."),
        ("DisplayName", "Bayer Interpolation Method"), ("Visibility", "Expert"), ("ImposedAccessMode", "RW"),
        ("Streamable", "Yes")]
        + [enum_entry(n, i, d, t) for i, (n, d, t) in enumerate(methods)]
        + [("pValue", "BayerInterpolationMethodReg")]))
    parts.append(reg("IntReg", "BayerInterpolationMethodReg", "Bayer interpolation method.", 0x20, 4, "RW"))

    # ReverseY.
    parts.append(node("Boolean", "ReverseY", "Standard", [
        ("ToolTip", "Enable the vertical flipping of the image."),
        ("Description", "This feature is for flipping image vertically."), ("DisplayName", "Reverse Y"),
        ("Visibility", "Expert"), ("ImposedAccessMode", "RW"), ("Streamable", "Yes"), ("pValue", "ReverseYReg"),
        ("OnValue", 1), ("OffValue", 0)]))
    parts.append(reg("IntReg", "ReverseYReg", "1 when the image is flipped vertically.", 0x18, 4, "RW",
                     [("Representation", "Boolean")]))

    # BitExpansionMode.
    modes = [("Gamma", "Gamma", "Stretch to the full range of the deeper format, with the gamma curve."),
             ("Fixed", "Fixed", "Keep the value; the upper bits stay 0."),
             ("LeftShiftBy0", "Left Shift By 0", "Shift up and fill the new low bits with 0."),
             ("LeftShiftBy1", "Left Shift By 1", "Shift up and fill the new low bits with 1.")]
    parts.append(node("Enumeration", "BitExpansionMode", "Custom", [
        ("ToolTip", "How samples are widened to a deeper pixel format."),
        ("Description", "Rule of the look-up table when the destination has more bits than the source."),
        ("DisplayName", "Bit Expansion Mode"), ("Visibility", "Expert"), ("ImposedAccessMode", "RW"),
        ("Streamable", "Yes")]
        + [enum_entry(n, i, d, t) for i, (n, d, t) in enumerate(modes)]
        + [("pValue", "BitExpansionModeReg")]))
    parts.append(reg("IntReg", "BitExpansionModeReg", "Bit expansion mode.", 0x48, 4, "RW"))

    parts.append(node("Port", "IPPort", "Custom", [("ToolTip", "Register port of the converter.")]))
    parts.append("</RegisterDescription>")
    return "\n".join(parts) + "\n"


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "xml", "ConverterPixelFormat.xml")
    assert len(FORMATS) == 98 and len({c for _, c in FORMATS}) == 98
    with open(out, "wb") as f:
        f.write(b"\xef\xbb\xbf" + build().encode("utf-8"))


if __name__ == "__main__":
    main()
