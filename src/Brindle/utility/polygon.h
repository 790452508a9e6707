/// @file
/// Planar geometry: sides of a line, boxes, polygons, convex hulls.
///
/// A polygon is `n` vertices as 2 * n values x0, y0, x1, y1, ... Edge i runs from vertex i to
/// vertex i + 1, the last edge back to vertex 0, which is not repeated. A point is two values x, y.
/// The y axis points up: left of the line from a to b means a positive turn value, and a polygon
/// that is listed counter-clockwise turns left at its convex vertices.
///
/// For a vertex count below 1, results are false, 0 or empty unless said otherwise. Pointers are
/// tested only where said. Each function says how it treats points on edges; only parallel edges
/// have a tolerance. Nothing is allocated but the nodes that are appended to the caller's lists;
/// after std::bad_alloc these keep what was appended before. No state; callable from any thread.
#pragma once

#include <list>

/// @defgroup polygon Polygons
/// @{

/// How pointInPolygon2D() decides. Any value but `PIP_CROSSING_NUMBER` means the winding number.
enum POINT_IN_POLYGON_METHOD : int {
  PIP_CROSSING_NUMBER = 0,  ///< even-odd rule
  PIP_WINDING_NUMBER = 1,   ///< non-zero rule
};

/// Returns the turn value `(p2.y - p0.y) * (p1.x - p0.x) - (p1.y - p0.y) * (p2.x - p0.x)`, twice
/// the signed area of the triangle: positive where `p2` lies to the left of the line from `p0` to
/// `p1`, 0 on the line, negative to its right.
double isLeft2DLineDouble(double* p0, double* p1, double* p2);

/// The same, computed in 32-bit integers that wrap around; only the last value is converted. Exact
/// where width times height of the three points' bounding box is below 2^31.
double isLeft2DLine(int* p0, int* p1, int* p2);

/// Returns whether two boxes with sides along the axes have a point in common; boxes that only
/// touch have. As y points up, a top is not below its bottom. The sides of the two boxes alternate.
bool boxboxIntersect2DInt(int left1, int left2, int right1, int right2, int top1, int top2,
                          int bottom1, int bottom2);

/// Classifies a box with sides along the axes and a sphere, in `dim` dimensions. All distances are
/// squared, from the sphere's centre; the first case that holds is returned.
///
/// With the centre inside the box (off its boundary in every dimension; also for `dim` below 1,
/// with all distances 0):
/// - 3, sphere inside box in the last dimension (the others are not tested): its nearer side is at
///   `radiusSq` or beyond;
/// - 2, box inside sphere: the farthest corner is at `radiusSq` or nearer;
/// - 1, otherwise.
///
/// With the centre on the boundary or outside, where 1 and 2 mean something else:
/// - 0, no contact: the nearest point of the box is beyond `radiusSq`;
/// - 2, partial overlap: the farthest corner is at `radiusSq` or beyond;
/// - 1, box inside sphere: otherwise.
/// @param boxMin,boxMax,center  `dim` coordinates each
/// @param radiusSq  the radius squared
int boxSphereIntersect(double* boxMin, double* boxMax, double* center, double radiusSq, int dim);

/// Returns whether no vertex turns against the orientation, to the left if `clockwise`, else to the
/// right. Vertices in line with their neighbours turn neither way. For `n` <= 4 the vertices are
/// not read and the result is true, so that every quadrilateral counts as convex.
bool is2DConvexPolygon(double* poly, int n, bool clockwise);

/// Replaces `indices` by those of the vertices that turn against the orientation, ascending: the
/// vertices with an interior angle above 180 degrees. Quadrilaterals are tested like any other
/// polygon.
void getBigAngleIndices2DPolygon(std::list<int>& indices, double* poly, int n, bool clockwise);

/// Returns whether edges of polygon A cross edges of polygon B, and appends the x of each crossing
/// to `xs` and its y to `ys`. The caller passes both lists or, to stop at the first crossing, two
/// null pointers. False for a null polygon.
///
/// An edge has its start point but not its end point: a crossing in a shared vertex is found on the
/// edge that starts there. Two edges are parallel, and never cross, when the cross product of their
/// directions is near zero, in [-9.999999974752427e-7, 9.999999974752427e-7], which is 1e-6 in
/// single precision.
///
/// Crossings are found edge by edge of A, for each of them edge by edge of B, and computed on the
/// edge of A. After std::bad_alloc `xs` may hold one value more than `ys`.
bool polygonIntersect2D(double* polyA, int nA, double* polyB, int nB, std::list<double>* xs,
                        std::list<double>* ys);

/// Like polygonIntersect2D(), with `poly` for A and the segment from `p0` to `p1` for the only edge
/// of B.
bool lineSegmentPolygonIntersect(double* p0, double* p1, double* poly, int n, std::list<double>* xs,
                                 std::list<double>* ys);

/// Scales a polygon in place about the mean of its vertices (not its centre of area). Does nothing
/// for a null `poly` or `n` below 1.
void scalePolygon2D(double* poly, int n, double scale);

/// Returns whether a point lies inside a polygon by the even-odd rule: whether an odd number of
/// edges cross the ray from the point towards -x. An edge has its upper end but not its lower one,
/// level edges never count, and points on an edge count as left of it: of the unit square the left
/// and the bottom side are outside, the right and the top side inside. False for a null pointer.
bool pointInPolygon2DCrossingNumber(double* poly, int n, double* p);

/// Returns whether a polygon winds around a point, by the signs of isLeft2DLineDouble() from each
/// vertex to the one before it. Ends, level edges and points on an edge count as for the crossing
/// number, but the side of an edge is that of the turn value instead of where the ray meets the
/// edge.
bool pointInPolygon2DWindingNumber(double* poly, int n, double* p);

/// Returns what pointInPolygon2DCrossingNumber() or pointInPolygon2DWindingNumber(), chosen by
/// `method`, returns.
bool pointInPolygon2D(double* poly, int n, double* p, POINT_IN_POLYGON_METHOD method);

/// Returns which of two polygons has all its vertices inside the other one, by
/// pointInPolygon2DWindingNumber(): 1 for A only, 2 for B only, 0 for neither or both. Edges are
/// not tested against each other. A polygon without vertices lies inside any polygon that has some.
int polygonCompletelyInside2D(double* polyA, int nA, double* polyB, int nB);

/// Returns whether both ends of a segment lie inside a hull by pointInPolygon2DWindingNumber();
/// `p1` is read only if `p0` lies inside. For the whole segment this is exact only if the hull is
/// convex.
bool lineSegmentInsideConvexHull(double* p0, double* p1, double* hull, int n);

/// Writes the convex hull of integer points by Andrew's monotone chain and returns its number of
/// points.
///
/// The hull runs counter-clockwise from the first point and ends with that point again; points
/// between two corners in line are left out. If the only leftmost or the only rightmost point is
/// given more than once, the hull holds it once more. If all x are equal, it consists of the first
/// point and the last point, and of the last point once more if their y differ.
///
/// Turns are those of isLeft2DLine(), exact where width times height of the points' bounding box is
/// below 2^31, as with coordinates from 0 to 46340. Beyond that turn values wrap around; then,
/// and where points are not sorted, the result need not be a hull, and what does not fit into n + 1
/// points is left out.
/// @param points  sorted by increasing x and, for equal x, by increasing y
/// @param hull  has room for n + 1 points
int chainHull_2D(int* points, int n, int* hull);

/// @}
