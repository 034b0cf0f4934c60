#include "telematic/engine/record_image.h"

#include "telematic/engine/file_seq.h"

namespace cu {

RecordImage::RecordImage(const IRecord& record) {
  FileSeq::Compose(record, line_);
  line_ += kLineEnd;
}

}  // namespace cu
