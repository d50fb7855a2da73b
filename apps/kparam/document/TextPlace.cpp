#include <document/TextPlace.h>

void TextPlace::goTo(int offset)
{
    for (; _offset < offset && _offset < _bytes.size(); ++_offset) {
        const auto byte = uchar(_bytes[_offset]);
        const bool continuesCharacter = (byte & 0xC0) == 0x80;
        if (byte == '\n') {
            ++_line;
            _column = 1;
        }
        else if (!continuesCharacter) {
            ++_column;
        }
    }
}
