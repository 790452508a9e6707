// Planar geometry: sides of a line, boxes, polygons, convex hulls.
//
// A polygon is `n` vertices as 2 * n values x0, y0, x1, y1, ... Edge i runs from vertex i to vertex
// i + 1 and the last edge back to vertex 0, which is not repeated. A point is two values x, y. The
// y axis points up: left of the line from a to b means a positive turn value, and a polygon that is
// listed counter-clockwise turns left at its convex vertices.
//
// Points on edges and vertices are told as the comparisons at each function say; nothing is rounded
// or widened on the way. The functions print nothing, keep no state, may be called from any thread
// and allocate nothing but the nodes that they append to the caller's lists.
#pragma once

#include <list>

/// How pointInPolygon2D() decides. Any value but `PIP_CROSSING_NUMBER` means the winding number.
enum POINT_IN_POLYGON_METHOD : int {
  PIP_CROSSING_NUMBER = 0,  ///< even-odd rule
  PIP_WINDING_NUMBER = 1,   ///< non-zero rule
};

/// Returns on which side of the directed line from `p0` to `p1` the point `p2` lies: positive for
/// left, 0 on the line, negative for right. The value is
/// `(p2.y - p0.y) * (p1.x - p0.x) - (p1.y - p0.y) * (p2.x - p0.x)`, twice the triangle's signed
/// area. No pointer may be null.
///
/// isLeft2DLine() computes in signed 32-bit integers that wrap around and converts the last value
/// only. It is exact as long as width times height of the three points' bounding box is below 2^31.
double isLeft2DLineDouble(double* p0, double* p1, double* p2);
double isLeft2DLine(int* p0, int* p1, int* p2);

/// Returns whether two boxes with sides along the axes have a point in common. Boxes that only
/// touch have. The sides of both boxes come in turn; a top is not below its bottom.
bool boxboxIntersect2DInt(int left1, int left2, int right1, int right2, int top1, int top2,
                          int bottom1, int bottom2);

/// Returns how a box with sides along the axes and a sphere lie to each other. `boxMin`, `boxMax`
/// and `center` hold `dim` values each; `radiusSq` is the radius squared.
///
/// With the centre inside the box (off its boundary in every dimension; also for `dim` <= 0, with
/// all distances 0):
/// - 3: the sphere lies inside the box as far as the last dimension tells, the only one looked at;
/// - 2: the box lies inside the sphere;
/// - 1: anything else.
///
/// With the centre on the boundary or outside:
/// - 0: no contact;
/// - 2: partial overlap (the corner farthest from the centre is not inside the sphere);
/// - 1: the box lies inside the sphere.
///
/// @warning 1 and 2 change their meaning with the centre's place.
int boxSphereIntersect(double* boxMin, double* boxMax, double* center, double radiusSq, int dim);

/// Returns whether no vertex turns against the orientation: right, or left when `clockwise`.
/// Vertices in line with their neighbours turn neither way. With `n` <= 4 the answer is true and
/// the points are not looked at, so that every quadrilateral counts as convex.
bool is2DConvexPolygon(double* poly, int n, bool clockwise);

/// Replaces `indices` by the indices, ascending, of the vertices that turn against the orientation:
/// those with an interior angle above 180 degrees. Empty for `n` <= 0. Quadrilaterals are looked at
/// like any other polygon.
void getBigAngleIndices2DPolygon(std::list<int>& indices, double* poly, int n, bool clockwise);

/// Finds where edges of polygon A cross edges of polygon B, or where edges of `poly` cross the
/// segment from `p0` to `p1`. Returns whether there is a crossing; false for a null polygon or a
/// vertex count below 1 (`p0` and `p1` are not tested).
///
/// An edge or segment has its start point but not its end point: a crossing in a shared vertex is
/// found on the edge that starts there. Two of them are parallel, and never cross, when the cross
/// product of their directions lies in [-1e-6, 1e-6] (the single-precision 1e-6).
///
/// With lists, appends the x of every crossing to `xs` and the y to `ys`, edge by edge of A or
/// `poly`, for each of them edge by edge of B; the points are reckoned along the edges of A or
/// `poly`. With both lists null, returns at the first crossing. Give both or neither; if only one
/// is null, the other one is filled.
bool polygonIntersect2D(double* polyA, int nA, double* polyB, int nB, std::list<double>* xs,
                        std::list<double>* ys);
bool lineSegmentPolygonIntersect(double* p0, double* p1, double* poly, int n, std::list<double>* xs,
                                 std::list<double>* ys);

/// Scales a polygon in place about the mean of its vertices (not its centre of area). Does nothing
/// for a null `poly` or `n` < 1.
void scalePolygon2D(double* poly, int n, double scale);

/// Returns whether `p` lies inside the polygon by the even-odd rule: whether an odd number of edges
/// cross the ray from `p` towards -x. An edge has its upper end but not its lower one, level edges
/// never count, and points on an edge count as left of it: of the unit square the left and the
/// bottom side are outside, the right and the top side inside. False for a null pointer or `n` < 1.
bool pointInPolygon2DCrossingNumber(double* poly, int n, double* p);

/// Returns whether the polygon winds around `p`, by the signs of isLeft2DLineDouble() from each
/// vertex to the one before it. Ends, level edges and points on an edge count as for the crossing
/// number, but an edge's side is told by the turn value instead of by where it meets the ray. False
/// for `n` < 1; the pointers are not tested.
bool pointInPolygon2DWindingNumber(double* poly, int n, double* p);

/// Returns pointInPolygon2DCrossingNumber() or pointInPolygon2DWindingNumber(), as `method` says.
bool pointInPolygon2D(double* poly, int n, double* p, POINT_IN_POLYGON_METHOD method);

/// Returns 1 when all vertices of A have winding numbers in B but not all of B in A, 2 when it is
/// the other way round, and 0 otherwise, also when both hold. Edges are not tested against each
/// other. A polygon without vertices lies inside any polygon that has some.
int polygonCompletelyInside2D(double* polyA, int nA, double* polyB, int nB);

/// Returns whether both ends of a segment lie inside `hull` by pointInPolygon2DWindingNumber(). For
/// the whole segment this is exact only if `hull` is convex.
bool lineSegmentInsideConvexHull(double* p0, double* p1, double* hull, int n);

/// Builds the convex hull of integer points by Andrew's monotone chain. The caller has sorted the
/// `n` points by increasing x and, for equal x, by increasing y; `hull` has room for n + 1 points.
/// Returns the number of points written; 0 for `n` < 1.
///
/// The hull runs counter-clockwise from the first point and ends with that point again; points
/// between two corners in line are left out. If all x are equal, it consists of the first point and
/// the last point, and of the last point once more if their y differ.
///
/// Turns are told by isLeft2DLine(): right as long as width times height of the points' bounding
/// box is below 2^31, as with coordinates from 0 to 46340. Beyond that turn values wrap around and
/// the result need not be a hull; what does not fit into n + 1 points is then cut off.
int chainHull_2D(int* points, int n, int* hull);
