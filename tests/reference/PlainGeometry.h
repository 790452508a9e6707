// Polygons and polylines in their plainest form, with which the product's are compared.
#pragma once

#include <list>
#include <vector>

#include "Brindle/utility/polyline.h"

bool plainPointInPolygon(double* poly, int n, double* p, bool byWinding);

/// Crosses polygon A with the first `edgesB` edges of polygon B.
bool plainCrossings(double* polyA, int nA, double* polyB, int nB, int edgesB, std::list<double>* xs,
                    std::list<double>* ys);

/// As chainHull_2D(), for points of which two x differ; `wasCut` becomes whether points were left
/// out for want of room.
int plainHull(int* points, int n, int* hull, bool& wasCut);

std::vector<float> plainPolylineAngle(const std::vector<Point2Df>& points, bool normalize,
                                      int radius, int iterations);
