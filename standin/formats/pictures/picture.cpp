// Pictures, decoded and encoded by gdk-pixbuf.
#include "standin/formats/pictures/picture.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
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

const FormatRow* rowOf(Format format) {
  const auto* row =
      std::find_if(std::begin(formats), std::end(formats), [&](const FormatRow& each) { return each.format == format; });
  return row != std::end(formats) ? row : nullptr;
}

bool canBeDecoded(Bytes bytes) {
  // The decoder takes as much memory as the header claims to be long, and as lies before the pixels.
  constexpr size_t pixelsPlace = 10, lengthPlace = 14;
  const Format format = formatOf(bytes.span());
  return format != Format::unknown &&
         (format != Format::bmp || std::max(bytes.read32(pixelsPlace), bytes.read32(lengthPlace)) <= bytes.size());
}

struct Unreference {
  void operator()(void* object) const { g_object_unref(object); }
};
using Loader = std::unique_ptr<GdkPixbufLoader, Unreference>;
using Picture = std::unique_ptr<GdkPixbuf, Unreference>;

class Decoder {
 public:
  explicit Decoder(std::span<const uint8_t> bytes) : loader_(gdk_pixbuf_loader_new()), bytes_(bytes) {
    g_signal_connect(loader_.get(), "size-prepared", G_CALLBACK(sizePrepared), this);
  }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
  ~Decoder() { gdk_pixbuf_loader_close(loader_.get(), nullptr); }

  // Feeds the picture until its size is known.
  std::optional<Size> size() {
    constexpr size_t piece = 4096;
    for (size_t fed = 0; fed < bytes_.size() && !size_; fed += piece) {
      const auto next = bytes_.subspan(fed, std::min(piece, bytes_.size() - fed));
      if (!gdk_pixbuf_loader_write(loader_.get(), next.data(), next.size(), nullptr)) break;
    }
    if (!size_) gdk_pixbuf_loader_close(loader_.get(), nullptr);
    return size_ && size_->width > 0 && size_->height > 0 ? size_ : std::nullopt;
  }

  Picture picture() {
    wantsPixels_ = true;
    const bool isWhole = gdk_pixbuf_loader_write(loader_.get(), bytes_.data(), bytes_.size(), nullptr) &&
                         gdk_pixbuf_loader_close(loader_.get(), nullptr);
    if (!isWhole || !size_ || int64_t{size_->width} * size_->height > mostPixels) return nullptr;
    GdkPixbuf* decoded = gdk_pixbuf_loader_get_pixbuf(loader_.get());
    return Picture(decoded != nullptr ? static_cast<GdkPixbuf*>(g_object_ref(decoded)) : nullptr);
  }

 private:
  // A picture of no size is given up before memory is taken for its pixels.
  static void sizePrepared(GdkPixbufLoader* loader, int width, int height, gpointer decoder) {
    Decoder& self = *static_cast<Decoder*>(decoder);
    self.size_ = Size{width, height};
    if (!self.wantsPixels_ || int64_t{width} * height > mostPixels) gdk_pixbuf_loader_set_size(loader, 0, 0);
  }

  Loader loader_;
  std::span<const uint8_t> bytes_;
  std::optional<Size> size_;
  bool wantsPixels_ = false;
};

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

std::optional<Size> sizeOf(std::span<const uint8_t> bytes) {
  if (!canBeDecoded(bytes)) return std::nullopt;
  return Decoder(bytes).size();
}

std::optional<std::string> convert(std::span<const uint8_t> bytes, Format format) {
  const Format own = formatOf(bytes);
  if (own == format) return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const FormatRow* row = rowOf(format);
  if (!canBeDecoded(bytes) || row == nullptr) return std::nullopt;
  return encoded(Decoder(bytes).picture().get(), row->name);
}

std::optional<Pixels> decode(std::span<const uint8_t> bytes) {
  if (!canBeDecoded(bytes)) return std::nullopt;
  const Picture picture = Decoder(bytes).picture();
  if (picture == nullptr) return std::nullopt;
  Pixels pixels{{gdk_pixbuf_get_width(picture.get()), gdk_pixbuf_get_height(picture.get())}, {}, {}};
  const bool hasOpacities = gdk_pixbuf_get_has_alpha(picture.get()) != 0;
  const int pixelBytes = gdk_pixbuf_get_n_channels(picture.get()), rowBytes = gdk_pixbuf_get_rowstride(picture.get());
  const auto* row = reinterpret_cast<const char*>(gdk_pixbuf_read_pixels(picture.get()));
  for (int y = 0; y < pixels.size.height; ++y, row += rowBytes) {
    for (const char* pixel = row; pixel < row + pixels.size.width * pixelBytes; pixel += pixelBytes) {
      pixels.colors.append(pixel, 3);
      if (hasOpacities) pixels.opacities += pixel[3];
    }
  }
  return pixels;
}

std::optional<std::string> encode(std::span<const uint8_t> pixels, Size size) {
  const Picture picture(gdk_pixbuf_new_from_data(pixels.data(), GDK_COLORSPACE_RGB, TRUE, 8, size.width, size.height,
                                                 size.width * 4, nullptr, nullptr));
  return encoded(picture.get(), "png");
}

}  // namespace standin::formats::pictures
