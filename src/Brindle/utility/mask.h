// Masks: packing, unpacking, overlap, erosion, and on which side of a line segment a mask lies.
//
// A byte mask has one byte for each pixel: row r begins at byte r * width, and 0 is background. A
// packed mask has one bit for each pixel: each row begins on a byte of its own and takes
// ceil(width / 8) bytes. The first pixel of eight is bit 7 of its byte, the eighth is bit 0; the
// unused low bits of a row's last byte are 0. Sizes and positions are in pixels.
//
// No state; callable from any thread. Messages go to standard output.
#pragma once

/// Unpacks the packed `width` x `height` mask into the byte image `out` of `outWidth` x `outHeight`
/// bytes, the mask's top left pixel at (x0, y0): 255 for a set bit, 0 for a clear one. Columns that
/// would pass the right edge of `out` are cut off; they never go on in the next row. The other
/// pixels of `out` become 0 with `clearFirst` and stay as they are without.
///
/// Does nothing, silently, when a pointer is null, a size is below 1, (x0, y0) does not lie in
/// `out`, or the mask's rows reach below it.
///
/// The bytes of a packed row are counted in single precision. Above a width of 2^24 the count may
/// differ from ceil(width / 8); pixels for which it leaves no bits become 0.
void bitData2Byte(unsigned char* packed, int width, int height, unsigned char* out, int outWidth,
                  int outHeight, int x0, int y0, bool clearFirst);

/// Packs the byte mask `bytes`, in which every byte but 0 is a set pixel, into a new block of
/// `packedLength` = height * ((width + 7) / 8) bytes, which the caller releases with `free`. What
/// `packed` pointed to before is released: it must be null or come from `malloc`.
///
/// For widths that are a multiple of 8 the last byte of each row stays 0: the last eight pixels of
/// every row are lost.
///
/// Failures, each with its message:
/// - "Error: invalid input (inside byte2BitData(...))!\n" when `width` or `height` is 0 or `bytes`
///   null: `packedLength` is 0 and `packed` stays as it was.
/// - "Error: unknown error occurs where packed data length is invalid (inside
///   byte2BitData(...))!\n", in one line, when the length is 0 all the same: `packedLength` is 0
///   and `packed` null.
/// - "Error: cannot allocate output memory (inside byte2BitData(...))!\n": `packed` is null and
///   `packedLength` keeps the length.
///
/// The length is computed as a signed 32-bit number that wraps around. Negative, as for one
/// negative size, it cannot be allocated; where it wraps around to a smaller one, only the rows
/// that fit are packed. Two negative sizes may give a block of zeros.
void byte2BitData(unsigned char* bytes, int width, int height, unsigned char*& packed,
                  unsigned long& packedLength);

/// Returns whether the packed masks A and B, their top left pixels at (xA, yA) and (xB, yB) of a
/// canvas, have a set pixel in the same place. Bits behind a row's last pixel do not count.
///
/// A row that passes the canvas's right edge goes on at the left of the canvas's next row. Where
/// mask A is wider than the canvas, each of its rows covers what the row above left there. What
/// would lie below the canvas has no place.
///
/// Prints "Error: invalid input (inside maskMaskOverlap(...))!\n" and returns false when a pointer
/// is null, a size is below 1, or a top left pixel is not on the canvas. Allocates nothing.
bool maskMaskOverlap(int canvasWidth, int canvasHeight, unsigned char* packedA, int widthA,
                     int heightA, int xA, int yA, unsigned char* packedB, int widthB, int heightB,
                     int xB, int yB);

/// Erodes the byte image in place by a square of 3 x 3 pixels and returns how many pixels are left.
/// A pixel of 127 or more is foreground. It keeps its own value when all its eight neighbours are
/// foreground too; every other pixel becomes 0, the image's border always.
///
/// Prints nothing. For a size below 1, a null `image`, or without memory for three rows, the image
/// stays as it is and 0 is returned.
int erosion(unsigned char* image, int width, int height);

/// Returns where the byte mask lies that has its pixel (c, r) at (originX + c, originY + r), seen
/// along the segment from (x2, y2) to (x1, y1): 0 when the segment touches a set pixel, 1 when the
/// mask lies to the left (y pointing up), -1 when it lies to the right. Every byte but 0 is set.
///
/// The segment is walked pixel by pixel along x when it is longer in x than in y, else along y. The
/// other coordinate is computed in single precision and truncated toward zero in coordinates that
/// begin at the mask's origin, so that the line still touches the first row or column from less
/// than a pixel before it. A segment without length touches nothing.
///
/// The side, by isLeft2DLineDouble((x2, y2), (x1, y1), pixel):
/// - When the segment's extension touches a set pixel: the side on which more positions of the
///   mask's whole rectangle lie, set or not; 1 when they are as many.
/// - Otherwise: the side of the first set pixel, row by row; 0 when it lies exactly on the line.
/// - Without a set pixel: the side of (originX + width / 2, originY + height / 2), halved in whole
///   numbers; -1 when it lies exactly on the line.
///
/// Prints "Error: invalid input (inside lineSegmentMaskIntersect(...))!\n" and returns 0 when
/// `mask` is null.
int lineSegmentMaskIntersect(unsigned char* mask, int originX, int originY, int width, int height,
                             int x1, int y1, int x2, int y2);
