#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the sample library: small pictures with keywords in many scripts, the same ones at each run.

Needs Pillow (Debian: python3-pil). Usage: make_samples.py [FOLDER]; without FOLDER, the project's samples folder.
"""

import io
import pathlib
import sys

from PIL import Image, PngImagePlugin, TiffImagePlugin

import sample_metadata as metadata
import sample_pictures as pictures

ORIENTATION = 0x0112
XMP_TAG = 700
IPTC_TAG = 33723


class Sample:
    """A picture with the keywords of each place that can hold some."""

    def __init__(self, name, image, xmp=(), iptc=(), encoding="utf-8", sidecar=None, beside=(), orientation=None):
        self.name, self.image, self.xmp = name, image, list(xmp)
        self.iptc = metadata.iptc(iptc, encoding) if iptc else b""
        self.sidecar, self.beside, self.orientation = sidecar, list(beside), orientation

    def write(self, folder):
        path = folder / self.name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(getattr(self, path.suffix[1:])())
        if self.sidecar:
            (path.parent / self.sidecar).write_text(metadata.xmp(self.beside), encoding="utf-8")

    def jpg(self):
        options = {}
        if self.orientation:
            exif = Image.Exif()
            exif[ORIENTATION] = self.orientation
            options["exif"] = exif.tobytes()
        return metadata.jpeg_with(encoded(self.image, "JPEG", quality=80, optimize=True, **options), self.xmp, self.iptc)

    def png(self):
        texts = PngImagePlugin.PngInfo()
        if self.xmp:
            texts.add_itxt("XML:com.adobe.xmp", metadata.xmp_packet(self.xmp).decode())
        return encoded(few_colours(self.image, 48), "PNG", optimize=True, pnginfo=texts)

    def tif(self):
        tags = TiffImagePlugin.ImageFileDirectory_v2()
        if self.xmp:
            tags.tagtype[XMP_TAG] = 1
            tags[XMP_TAG] = metadata.xmp_packet(self.xmp)
        if self.iptc:
            tags.tagtype[IPTC_TAG] = 7
            tags[IPTC_TAG] = self.iptc
        return encoded(few_colours(self.image, 24), "TIFF", compression="tiff_adobe_deflate", tiffinfo=tags)

    def webp(self):
        options = {"xmp": metadata.xmp_packet(self.xmp)} if self.xmp else {}
        return encoded(self.image, "WEBP", quality=78, method=6, **options)


def encoded(image, image_format, **options):
    data = io.BytesIO()
    image.save(data, image_format, **options)
    return data.getvalue()


def few_colours(image, number):
    return image.quantize(number, dither=Image.Dither.NONE)


def landscapes():
    blue = ["#1d3b6b", "#5b8fc4", "#f3d9b8"]
    return [
        Sample("Landscapes/Morning over the ridge.jpg",
               pictures.mountains(3, blue, ["#7c93b8", "#50698f", "#2f4566", "#192a44"], "#ffe9bf"),
               xmp=["Landscape", "Mountains", "风景", "山水", "Горы", "Природа", "\"Golden hour\""],
               iptc=["Landscape", "Mountains", "Travel"]),
        Sample("Landscapes/Last light.jpg",
               pictures.mountains(8, ["#2b1a46", "#b4476a", "#ffb36b"], ["#6d3a5e", "#4a294d", "#2c1b38", "#170f22"],
                                  "#ffdf9e"),
               xmp=["Landscape", "Mountains", "Sunset", "日落", "光影", "暖色", "풍경", "Закат"]),
        Sample("Landscapes/Evening sea.jpg",
               pictures.sea(1, ["#22325c", "#c9656b", "#ffcf8f"], ["#8a5468", "#1b2444"], "#ffe6b0"),
               xmp=["Sea", "Sunset", "海边", "うみ", "바다", "بحر", "Θάλασσα", "Vacation 2025"], iptc=["Sea", "Sunset"]),
        Sample("Landscapes/Calm bay.webp",
               pictures.sea(5, ["#7fb6d6", "#cfe6ee", "#fdf3dc"], ["#6fa8bd", "#2f6f8f"], "#fff7df"),
               xmp=["Sea", "海边", "蓝色", "安静", "Été", "Travel", "Øresund"]),
        Sample("Landscapes/Fog in the firs.jpg", pictures.forest(2, ["#dfe8e6", "#a9c0b8"], "#1f3d36"),
               xmp=["Landscape", "Forest", "森林", "安静", "Природа", "طبيعة", "To do: crop, straighten"]),
        Sample("Landscapes/Autumn forest.jpg", pictures.forest(9, ["#fbe3b5", "#e0a458"], "#7a2e1d"),
               iptc=["Forest", "Autumn", "秋天", "もり", "가을", "Landscape"]),
        Sample("Landscapes/Dunes.png",
               pictures.dunes(4, ["#f7dcb2", "#f5c98e"], ["#e3a868", "#d08c4c", "#b06f3a", "#7f4a28"]),
               xmp=["Landscape", "Desert", "沙漠", "صحراء", "暖色", "Travel"]),
        Sample("Landscapes/Northern lights.jpg",
               pictures.aurora(6, ["#060b1e", "#0f2440"], ["#3fe0a0", "#58c8e8"], ["#29405e", "#c8d8e8"]),
               xmp=["Night", "Winter", "夜景", "雪景", "そら", "겨울", "Ночь", "Ångermanland"], iptc=["Night", "Winter"]),
        Sample("Landscapes/Tulip field.jpg",
               pictures.flowers(7, ["#9cc8ea", "#eaf4fb"], ["#86b56a", "#3f6f34"], ["#e4455e", "#f7b733", "#f4f0e6", "#a64ca6"]),
               xmp=["Flowers", "Spring", "花朵", "さくら", "봄", "🌷 Tulips", "Color: red & yellow"]),
    ]


def travel():
    return [
        Sample("Travel/City at night.jpg",
               pictures.skyline(1, ["#0b1030", "#3a2a5e", "#a4566e"], ["#2a2350", "#171335"], "#ffd98a"),
               xmp=["City", "Night", "Architecture", "城市", "夜景", "建筑", "Город", "מגדל"], iptc=["City", "Night"]),
        Sample("Travel/City by day.webp",
               pictures.skyline(12, ["#a9d2ee", "#eef6fa"], ["#9fb4c8", "#5c7894"], "#fff1c2"),
               xmp=["City", "Architecture", "Travel", "旅行", "建筑", "도시", "Zürich", "São Paulo"]),
        Sample("Travel/Balloons.png", pictures.balloons(3, ["#8fc7ef", "#e9f5fc"], ["#e85d4a", "#f2b134", "#4a90d9", "#7a5bb5"]),
               xmp=["Travel", "Vacation 2025", "旅行", "天空", "そら", "🎈", "Łódź"]),
        Sample("Travel/Postcard from Malmö.jpg", pictures.sea(11, ["#89b4c8", "#f4e3c8"], ["#7aa0b0", "#456f84"], "#fff0c8"),
               iptc=["Malmö", "Øresund", "Été", "Sea"], encoding="latin-1"),
        Sample("Travel/Held sideways.jpg", pictures.mountains(15, ["#cfe3f2", "#f7efe0"],
                                                               ["#b9c9c4", "#8aa79b", "#5d8272", "#35594b"],
                                                               "#fffbe8").transpose(Image.Transpose.ROTATE_90),
               xmp=["Mountains", "2024", "阳光", "हिमालय"], orientation=6),
    ]


def everyday():
    return [
        Sample("Everyday/Coffee.jpg", pictures.cup(0, "#a8744a", "#e6d3bd", "#fbf7f0"),
               xmp=["Coffee", "Food", "咖啡", "美食", "Café", "温柔"], iptc=["Coffee", "Café"]),
        Sample("Everyday/Lemons.png", pictures.lemons(0, "#7fc4b4", "#f4c430", "#f9dd63"),
               xmp=["Food", "Pattern", "美食", "黄色", "レモン", "🍋", "Été"]),
        Sample("Everyday/Cat and moon.png", pictures.cat(0, "#1d2350", "#f6e7b4", "#0c0f26"),
               xmp=["Animals", "Night", "动物", "ねこ", "고양이", "🐱", "#favourite"]),
        Sample("Everyday/Shoal.webp", pictures.fish(4, ["#0f6a8c", "#06263c"], ["#ff8a5c", "#ffd166", "#8ce0d2", "#f4f1de"]),
               xmp=["Animals", "Sea", "动物", "鱼", "さかな"]),
    ]


def design():
    return [
        Sample("Design/Fans.tif", pictures.scales(0, "#f6efe0", ["#1f4e79", "#f6efe0", "#2f7fb5", "#f6efe0"]),
               xmp=["Pattern", "Textile", "图案", "蓝色", "デザイン", "Naïve art"], iptc=["Pattern", "Textile"]),
        Sample("Design/Quarter circles.png",
               pictures.quarter_circles(10, ["#f2e8d5", "#e2583e", "#2a4d69", "#f0b13a", "#3a8f85"]),
               xmp=["Abstract", "Pattern", "抽象", "图案", "配色", "Дизайн", "3D? No, flat"]),
        Sample("Design/Rings.tif", pictures.rings(0, "#20242e", ["#ff6b6b", "#ffd93d", "#6bcb77", "#4d96ff"]),
               iptc=["Abstract", "抽象", "디자인", "4K"]),
        Sample("Design/Tartan.png", pictures.tartan(0, "#12343b", [(0, 20, "#1f5a4d"), (30, 6, "#c94c4c"), (46, 3, "#f2d492")]),
               sidecar="Tartan.png.xmp", beside=["Pattern", "Textile", "红色", "Client work", "@home"]),
        Sample("Design/Poster R.jpg", pictures.poster(0, "#f3ead8", "#22263a", "#e1533d"),
               xmp=["Poster", "Typography"], sidecar="Poster R.xmp",
               beside=["Poster", "Typography", "海报", "字体", "灵感", "تصميم", "Client work"]),
        Sample("Design/Swatches.png",
               pictures.swatches(0, [("#0b3c5d", "#d9e8f0"), ("#8c2f39", "#f7d9c4"), ("#2d5a27", "#e8edc9")]),
               xmp=["Colour palette", "配色", "Moodboard", "Inspiration", "灵感", "❤️ Love"]),
        Sample("Design/Wireframe.png", pictures.wireframe(0, "#e6e9ef", "#39435a", "#4f7cff"),
               xmp=["UI kit", "Wireframe", "界面", "Client work", "2024", "画面", "¡Hola!"]),
        Sample("Design/Marks.png", pictures.marks(0, "#faf7f2", "#1d2433", "#ef6f53"),
               xmp=["Logo", "标志", "Icon set", "ロゴ", "Inspiration", "Логотип", "عربي"]),
    ]


def main():
    home = pathlib.Path(__file__).resolve().parent.parent
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else home / "samples"
    samples = landscapes() + travel() + everyday() + design()
    for sample in samples:
        sample.write(folder)
    print(f"{len(samples)} pictures in {folder}")


if __name__ == "__main__":
    main()
