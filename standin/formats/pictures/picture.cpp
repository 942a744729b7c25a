// Pictures, decoded and encoded by gdk-pixbuf.
#include "standin/formats/pictures/picture.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

#include "standin/formats/little_endian.hpp"

namespace standin::formats::pictures {
namespace {

struct FormatRow {
  Format format;
  std::string_view signature;
  const char* name;  // as the decoder and media types call it
  std::string_view extension;
};
constexpr FormatRow formats[] = {
    {Format::png, "\x89PNG\r\n\x1A\n", "png", "png"},
    {Format::jpeg, "\xFF\xD8\xFF", "jpeg", "jpg"},
    {Format::gif, "GIF8", "gif", "gif"},
    {Format::tiff, {"II*\0", 4}, "tiff", "tiff"},
    {Format::tiff, {"MM\0*", 4}, "tiff", "tiff"},
    {Format::bmp, "BM", "bmp", "bmp"},
};

constexpr size_t colorBytes = 3;  // red, green and blue

const FormatRow* rowOf(Format format) {
  const auto* row =
      std::find_if(std::begin(formats), std::end(formats), [&](const FormatRow& each) { return each.format == format; });
  return row != std::end(formats) ? row : nullptr;
}

struct Unreference {
  void operator()(void* object) const { g_object_unref(object); }
};
using Loader = std::unique_ptr<GdkPixbufLoader, Unreference>;
using Picture = std::unique_ptr<GdkPixbuf, Unreference>;

// A picture whose pixels turn out to be too many, whatever its header said, is given up before memory is taken for them.
void sizePrepared(GdkPixbufLoader* loader, int width, int height, gpointer most) {
  if (int64_t{width} * height > *static_cast<const int64_t*>(most)) gdk_pixbuf_loader_set_size(loader, 0, 0);
}

// Nil when the picture cannot be decoded. The decoder of bitmaps takes as much memory as their headers claim to be long, and
// as lies before the pixels.
Picture decoded(Bytes bytes) {
  constexpr size_t pixelsPlace = 10, lengthPlace = 14;
  const FormatRow* row = rowOf(formatOf(bytes.span()));
  const auto size = sizeOf(bytes.span());
  int64_t most = mostPixels(bytes.size());
  if (row == nullptr || !size || pixelsOf(*size) > most) return nullptr;
  if (row->format == Format::bmp && std::max(bytes.read32(pixelsPlace), bytes.read32(lengthPlace)) > bytes.size()) {
    return nullptr;
  }
  const Loader loader(gdk_pixbuf_loader_new_with_type(row->name, nullptr));
  if (loader == nullptr) return nullptr;
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(sizePrepared), &most);
  const bool isTaken = gdk_pixbuf_loader_write(loader.get(), bytes.span().data(), bytes.size(), nullptr);
  const bool isWhole = gdk_pixbuf_loader_close(loader.get(), nullptr);
  GdkPixbuf* picture = isTaken && isWhole ? gdk_pixbuf_loader_get_pixbuf(loader.get()) : nullptr;
  if (picture == nullptr || pixelsOf({gdk_pixbuf_get_width(picture), gdk_pixbuf_get_height(picture)}) > most) return nullptr;
  return Picture(static_cast<GdkPixbuf*>(g_object_ref(picture)));
}

std::optional<std::string> encoded(GdkPixbuf* picture, const char* type) {
  gchar* buffer = nullptr;
  gsize count = 0;
  if (picture == nullptr || !gdk_pixbuf_save_to_buffer(picture, &buffer, &count, type, nullptr, nullptr))
    return std::nullopt;
  const std::unique_ptr<gchar, decltype(&g_free)> owned(buffer, g_free);
  return std::string(buffer, count);
}

}  // namespace

Format formatOf(std::span<const uint8_t> bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  for (const FormatRow& row : formats) {
    if (text.starts_with(row.signature)) return row.format;
  }
  return Format::unknown;
}

std::string_view extensionOf(Format format) {
  const FormatRow* row = rowOf(format);
  return row != nullptr ? row->extension : std::string_view();
}

std::string mimeTypeOf(Format format) {
  const FormatRow* row = rowOf(format);
  return row != nullptr ? std::string("image/") + row->name : "";
}

std::optional<std::string> convert(std::span<const uint8_t> bytes, Format format) {
  const Format own = formatOf(bytes);
  if (own == format) return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const FormatRow* row = rowOf(format);
  return row != nullptr ? encoded(decoded(bytes).get(), row->name) : std::nullopt;
}

// The colors are moved together where the decoder has put them: a large picture takes most of the memory that there may be.
std::optional<Pixels> decode(std::span<const uint8_t> bytes) {
  Picture picture = decoded(bytes);
  if (picture == nullptr) return std::nullopt;
  Pixels pixels{{gdk_pixbuf_get_width(picture.get()), gdk_pixbuf_get_height(picture.get())}, {}, {}, {}};
  const size_t width = static_cast<size_t>(pixels.size.width), height = static_cast<size_t>(pixels.size.height);
  const auto pixelBytes = static_cast<size_t>(gdk_pixbuf_get_n_channels(picture.get()));
  const auto rowBytes = static_cast<size_t>(gdk_pixbuf_get_rowstride(picture.get()));
  uint8_t* const first = gdk_pixbuf_get_pixels(picture.get());
  if (pixelBytes > colorBytes) pixels.opacities.resize(width * height);
  uint8_t* to = first;
  char* opacity = pixels.opacities.data();
  for (size_t y = 0; y < height; ++y) {
    const uint8_t* from = first + y * rowBytes;
    if (pixelBytes == colorBytes) {
      std::memmove(to, from, width * colorBytes);
      to += width * colorBytes;
      continue;
    }
    for (size_t x = 0; x < width; ++x, from += pixelBytes, to += colorBytes) {
      std::memmove(to, from, colorBytes);
      *opacity++ = static_cast<char>(from[colorBytes]);
    }
  }
  pixels.colors = {reinterpret_cast<const char*>(first), width * height * colorBytes};
  pixels.owner = std::shared_ptr<void>(picture.release(), Unreference());
  return pixels;
}

std::optional<std::string> encode(std::span<const uint8_t> pixels, Size size) {
  const Picture picture(gdk_pixbuf_new_from_data(pixels.data(), GDK_COLORSPACE_RGB, TRUE, 8, size.width, size.height,
                                                 size.width * 4, nullptr, nullptr));
  return encoded(picture.get(), "png");
}

}  // namespace standin::formats::pictures
