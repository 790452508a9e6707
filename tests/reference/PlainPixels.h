// Masks and image buffers in their plainest form: pixel by pixel.
#pragma once

struct PlainMask {
  const unsigned char* packed;
  int width, height, x, y;
};
void plainUnpack(const PlainMask& mask, unsigned char* out, int outWidth);
void plainPack(const unsigned char* bytes, int width, int height, unsigned char* zeros);
bool plainOverlap(int canvasWidth, int canvasHeight, const PlainMask& a, const PlainMask& b);
int plainErosion(unsigned char* image, int width, int height);

/// One image of a copy: `x` and `y` place the region's top left pixel in it.
struct PlainImage {
  unsigned char* bytes;
  int width, height, stride, x, y;
};
void plainCopy(const PlainImage& source, const PlainImage& destination, int bytesPerPixel,
               int regionWidth, int regionHeight, const unsigned char* mask, int maskStride);
void plainSwap(const unsigned char* source, int width, int height, int stride,
               unsigned char* target);
