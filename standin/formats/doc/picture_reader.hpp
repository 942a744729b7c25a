// The pictures of a document that is read, in the line of the text and as drawn shapes.
#pragma once

#include <memory>
#include <unordered_map>

#include "standin/formats/doc/drawing_records.hpp"
#include "standin/formats/doc/source.hpp"
#include "standin/text/attachment.hpp"

namespace standin::formats::doc {

class PictureReader {
 public:
  explicit PictureReader(const Source& source);

  // The picture whose description is at this place of the data stream; nil for metafiles and what else no attachment has.
  std::shared_ptr<const text::Attachment> inLine(uint32_t place);
  // The picture of the shape that the character stands for; nil when the shape is none.
  std::shared_ptr<const text::Attachment> atCharacter(uint32_t character);

 private:
  using Picture = std::shared_ptr<const text::Attachment>;

  Picture readInLine(Bytes description);
  Picture readShape(Bytes anchor);
  Picture newPicture(Bytes contents, double width, double height);
  void readDrawings();
  void takeRecord(const Record& record);
  void readAnchors();

  const Source& source_;
  size_t budget_;  // bytes of pictures that may still be taken: places can overlap
  bool knowsDrawings_ = false;
  uint32_t currentShape_ = 0;
  std::vector<Bytes> stored_;                        // pictures of the drawings, by their numbers
  std::unordered_map<uint32_t, uint32_t> ofShapes_;  // numbers of pictures, from 1, by shape
  std::unordered_map<uint32_t, Picture> inLine_;     // by place
  std::unordered_map<uint32_t, Bytes> anchors_;      // places of shapes, by character
};

}  // namespace standin::formats::doc
