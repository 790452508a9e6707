/// @file
/// Masks: packing, unpacking, overlap, erosion, and on which side of a line segment a mask lies.
///
/// A byte mask has one byte for each pixel: row r begins at byte r * width, and 0 is background. A
/// packed mask has one bit for each pixel: each row begins on a byte of its own and takes
/// ceil(width / 8) bytes. The first pixel of eight is bit 7 of its byte, the eighth is bit 0; the
/// unused low bits of a row's last byte are 0. Sizes and positions are in pixels.
///
/// No state; callable from any thread. Messages go to standard output.
#pragma once

/// Unpacks a packed mask into a byte image: 255 for a set bit, 0 for a clear one. Columns that
/// would pass the image's right edge are cut off; they never go on in the next row.
///
/// Does nothing, silently, when a pointer is null, a size is below 1, (x0, y0) does not lie in the
/// image, or the mask's rows reach below it.
///
/// The bytes of a packed row are counted in single precision. Above a width of 2^24 the count may
/// differ from ceil(width / 8); pixels for which it leaves no bits become 0.
/// @param packed  the packed mask
/// @param width,height  the mask's size
/// @param out  the byte image, outWidth * outHeight bytes; must not overlap `packed`
/// @param outWidth,outHeight  the image's size
/// @param x0,y0  where in the image the mask's top left pixel comes to lie
/// @param clearFirst  whether the pixels around the mask become 0, instead of staying as they are
void bitData2Byte(unsigned char* packed, int width, int height, unsigned char* out, int outWidth,
                  int outHeight, int x0, int y0, bool clearFirst);

/// Packs a byte mask, in which every byte but 0 is a set pixel.
///
/// - Prints "Error: invalid input (inside byte2BitData(...))!\n" when `width` or `height` is 0 or
///   `bytes` null; `packedLength` is 0 and `packed` stays as it was.
/// - Prints "Error: unknown error occurs where packed data length is invalid (inside
///   byte2BitData(...))!\n" (one line) when the length is 0 all the same; `packedLength` is 0 and
///   `packed` null.
/// - Prints "Error: cannot allocate output memory (inside byte2BitData(...))!\n" when there is no
///   memory; `packed` is null and `packedLength` keeps the length.
///
/// The length is computed as a signed 32-bit number that wraps around. A negative one cannot be
/// allocated; where it wraps around to a smaller one, only the rows that fit are packed. A negative
/// size may give a block of zeros.
///
/// @warning For widths that are a multiple of 8 the last byte of each row stays 0: the last eight
/// pixels of every row are lost.
/// @param bytes  the byte mask; must not lie in the block that `packed` points to, which is
/// released first
/// @param width,height  the mask's size
/// @param packed  must be null or come from `malloc`; what it points to is released. Receives the
/// packed mask, a new block that the caller releases with `free`
/// @param packedLength  receives the block's bytes, height * ((width + 7) / 8)
void byte2BitData(unsigned char* bytes, int width, int height, unsigned char*& packed,
                  unsigned long& packedLength);

/// Tells whether two packed masks, placed on a canvas, have a set pixel in the same place. Bits
/// behind a row's last pixel do not count. Allocates nothing.
///
/// A row that passes the canvas's right edge goes on at the left of the canvas's next row. Where
/// mask A is wider than the canvas, each of its rows covers what the row above left there. What
/// would lie below the canvas has no place.
///
/// Prints "Error: invalid input (inside maskMaskOverlap(...))!\n" when a pointer is null, a size is
/// below 1, or a top left pixel is not on the canvas.
/// @param canvasWidth,canvasHeight  the canvas's size
/// @param packedA  mask A, packed
/// @param widthA,heightA  the size of A
/// @param xA,yA  where on the canvas the top left pixel of A lies
/// @param packedB  mask B, packed
/// @param widthB,heightB  the size of B
/// @param xB,yB  where on the canvas the top left pixel of B lies
/// @return whether they have; false after the message
bool maskMaskOverlap(int canvasWidth, int canvasHeight, unsigned char* packedA, int widthA,
                     int heightA, int xA, int yA, unsigned char* packedB, int widthB, int heightB,
                     int xB, int yB);

/// Erodes a byte image in place by a square of 3 x 3 pixels. A pixel of 127 or more is foreground.
/// It keeps its own value when all its eight neighbours are foreground too; every other pixel
/// becomes 0, the image's border always. Prints nothing.
/// @param image  the byte image, or null
/// @param width,height  the image's size
/// @return the number of pixels that are left; 0, with the image as it was, for a size below 1, a
/// null `image`, or without memory for three rows
int erosion(unsigned char* image, int width, int height);

/// Tells where a byte mask lies, seen along the segment from (x2, y2) to (x1, y1). The mask's pixel
/// (c, r) lies at (originX + c, originY + r), and every byte but 0 is set.
///
/// The segment is walked pixel by pixel along x when it is longer in x than in y, else along y. The
/// other coordinate is computed in single precision and truncated toward zero in coordinates that
/// begin at the mask's origin, so that the line still touches the first row or column from less
/// than a pixel before it. Each of these coordinates is converted to single precision before it is
/// subtracted, which matters above 2^24 only. A segment without length touches nothing.
///
/// When the segment touches no set pixel, isLeft2DLineDouble((x2, y2), (x1, y1), pixel) tells the
/// side:
/// - when the segment's extension touches a set pixel, the side on which more positions of the
///   mask's whole rectangle lie, set or not; 1 when they are as many;
/// - otherwise the side of the first set pixel, row by row; 0 when it lies exactly on the line;
/// - without a set pixel the side of (originX + width / 2, originY + height / 2), halved in whole
///   numbers; -1 when it lies exactly on the line.
///
/// Prints "Error: invalid input (inside lineSegmentMaskIntersect(...))!\n" when `mask` is null.
/// @param mask  the byte mask
/// @param originX,originY  where the mask's top left pixel lies
/// @param width,height  the mask's size; with either below 1 it has no set pixel
/// @param x1,y1  where the segment ends
/// @param x2,y2  where it starts
/// @return 0 when the segment touches a set pixel, 1 when the mask lies to the left (y pointing
/// up), -1 when it lies to the right; 0 after the message
int lineSegmentMaskIntersect(unsigned char* mask, int originX, int originY, int width, int height,
                             int x1, int y1, int x2, int y2);
