#include "records/CommentCodec.h"

#include <QString>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromLatin1(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QStringList comments = commentcodec::decode(text);
    commentcodec::encodeNewCd(comments);
    commentcodec::encodeChangeCd(comments);
    return 0;
}
