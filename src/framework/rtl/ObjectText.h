#pragma once
// The text form of the component stream, and the conversions both ways:
//
//   object Drawing1: TDrawing
//     Title = 'Plan'#233
//     Shapes = <
//       item
//         Size = 12
//       end>
//     Lines.Strings = (
//       'first'
//       'second')
//     Kinds = [skCircle, skSquare]
//     Data = {0A0B0C}
//   end
//
// Each level indents two blanks. Strings are quoted, with a quote and every character
// outside printable ASCII written as #n (its UTF-16 code); a string longer than 64
// characters starts on a new line and continues with " +" every 64 characters. Binary
// data longer than 31 bytes puts each 32 bytes on a line. Floats (vaExtended) are
// written with the fewest significant digits that read back as the same double, laid
// out fixed with 18 decimals as the format has them ("1.500000000000000000"), or in
// exponent form ("1E20") where 18 decimals cannot hold them; singles end in s, currency
// (in ten-thousandths) in c, dates in d. Lines end with sLineBreak.
//
// Converting a stream this library wrote to text and back gives the same bytes.

namespace quil {

class TStream;

// From input's position to the end of one component; raise EReadError or EParserError
// for damaged input.
void ObjectBinaryToText(TStream& input, TStream& output);
void ObjectTextToBinary(TStream& input, TStream& output);
// The same, for a binary stream behind a resource header (as linked into programs).
void ObjectResourceToText(TStream& input, TStream& output);
void ObjectTextToResource(TStream& input, TStream& output);

}  // namespace quil
