// A media file as TagLib reads it.
#pragma once

#include "library/tags/file_form.h"

#include <taglib/tfile.h>
#include <taglib/tiostream.h>

#include <memory>

namespace vk {

/// The bytes of a media file, which outlives it. Nothing is ever written. Reading throws an `Error`
/// when it goes on and on, as it does where a count in a damaged file is believed.
class ForeignStream : public TagLib::IOStream {
  public:
    explicit ForeignStream(MediaFile& file) : file_(file) { file_.Seek(0); }

    TagLib::FileName name() const override { return ""; }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void writeBlock(const TagLib::ByteVector&) override {}
    void insert(const TagLib::ByteVector&, unsigned long, unsigned long) override {}
    void removeBlock(unsigned long, unsigned long) override {}
    bool readOnly() const override { return true; }
    bool isOpen() const override { return true; }
    void seek(long offset, Position from) override;
    void clear() override {}
    long tell() const override { return static_cast<long>(file_.Position()); }
    long length() override { return static_cast<long>(file_.Length()); }
    void truncate(long) override {}

  private:
    MediaFile& file_;
    int reads_ = 0, shortReads_ = 0;
};

/// TagLib's reader for a form, without the sound's properties; both must outlive it.
std::unique_ptr<TagLib::File> OpenForeign(ForeignStream& stream, FileForm form);

} // namespace vk
