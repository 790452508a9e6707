/// @file
/// Planar geometry: sides of a line, boxes, polygons, convex hulls.
///
/// A polygon is `n` vertices as 2 * n values x0, y0, x1, y1, ... Edge i runs from vertex i to
/// vertex i + 1 and the last edge back to vertex 0, which is not repeated. A point is two values x,
/// y. The y axis points up: left of the line from a to b means a positive turn value, and a polygon
/// that is listed counter-clockwise turns left at its convex vertices.
///
/// Points on edges and vertices are told as the comparisons at each function say, without a
/// tolerance. Pointers are tested only where said. Nothing is allocated but the nodes that are
/// appended to the caller's lists. No state; callable from any thread.
#pragma once

#include <list>

/// How pointInPolygon2D() decides. Any value but `PIP_CROSSING_NUMBER` means the winding number.
enum POINT_IN_POLYGON_METHOD : int {
  PIP_CROSSING_NUMBER = 0,  ///< even-odd rule
  PIP_WINDING_NUMBER = 1,   ///< non-zero rule
};

/// @{
/// Tells on which side of a directed line a point lies, by the turn value
/// `(p2.y - p0.y) * (p1.x - p0.x) - (p1.y - p0.y) * (p2.x - p0.x)`, twice the triangle's signed
/// area.
///
/// isLeft2DLine() computes in signed 32-bit integers that wrap around and converts the last value
/// only. It is exact as long as width times height of the three points' bounding box is below 2^31.
/// @param p0  where the line starts
/// @param p1  where it leads
/// @param p2  the point
/// @return positive for left, 0 on the line, negative for right
double isLeft2DLineDouble(double* p0, double* p1, double* p2);
double isLeft2DLine(int* p0, int* p1, int* p2);
/// @}

/// Tells whether two boxes with sides along the axes have a point in common. Boxes that only touch
/// have. The sides of both boxes come in turn.
/// @param left1,left2  the least x
/// @param right1,right2  the greatest x
/// @param top1,top2  the greatest y
/// @param bottom1,bottom2  the least y
/// @return whether they meet
bool boxboxIntersect2DInt(int left1, int left2, int right1, int right2, int top1, int top2,
                          int bottom1, int bottom2);

/// Tells how a box with sides along the axes and a sphere lie to each other. Distances are from the
/// centre, squared, and tested in this order.
///
/// With the centre inside the box (off its boundary in every dimension; also for `dim` below 1,
/// with all distances 0):
/// - 3 where that of the nearer side in the last dimension >= radiusSq: the sphere lies inside the
///   box, as far as that dimension, the only one looked at, tells;
/// - 2 where radiusSq >= that of the farthest corner: the box lies inside the sphere;
/// - 1 otherwise.
///
/// With the centre on the boundary or outside:
/// - 0 where radiusSq < that of the nearest point of the box: no contact;
/// - 2 where that of the farthest corner >= radiusSq: partial overlap;
/// - 1 otherwise: the box lies inside the sphere.
///
/// @warning 1 and 2 change their meaning with the centre's place.
/// @param boxMin  the least coordinate in each dimension
/// @param boxMax  the greatest coordinate in each dimension
/// @param center  of the sphere, one coordinate in each dimension
/// @param radiusSq  the radius squared
/// @param dim  the number of dimensions
/// @return the code
int boxSphereIntersect(double* boxMin, double* boxMax, double* center, double radiusSq, int dim);

/// Tells whether no vertex turns against the orientation. Vertices in line with their neighbours
/// turn neither way.
/// @param poly  the vertices; not looked at for `n` <= 4
/// @param n  vertices
/// @param clockwise  whether the polygon should turn right, instead of left
/// @return true also for `n` <= 4, so that every quadrilateral counts as convex
bool is2DConvexPolygon(double* poly, int n, bool clockwise);

/// Finds the vertices that turn against the orientation: those with an interior angle above 180
/// degrees. Quadrilaterals are looked at like any other polygon.
/// @param indices  replaced by the vertices' indices, ascending; empty for `n` below 1
/// @param poly  the vertices
/// @param n  vertices
/// @param clockwise  whether the polygon should turn right, instead of left
void getBigAngleIndices2DPolygon(std::list<int>& indices, double* poly, int n, bool clockwise);

/// Finds where edges of polygon A cross edges of polygon B.
///
/// An edge has its start point but not its end point: a crossing in a shared vertex is found on the
/// edge that starts there. Two edges are parallel, and never cross, when the cross product of their
/// directions is near zero, in [-9.999999974752427e-7, 9.999999974752427e-7], which is 1e-6 in
/// single precision.
///
/// Crossings are appended edge by edge of A, for each of them edge by edge of B, as points reckoned
/// along the edges of A. The caller must pass both lists or neither; without them the search ends
/// at the first crossing.
/// @param polyA  the vertices of A, or null
/// @param nA  vertices of A
/// @param polyB  the vertices of B, or null
/// @param nB  vertices of B
/// @param xs  receives the x of every crossing, or null
/// @param ys  receives the y of every crossing, or null
/// @return whether there is a crossing; false for a null polygon or a vertex count below 1
bool polygonIntersect2D(double* polyA, int nA, double* polyB, int nB, std::list<double>* xs,
                        std::list<double>* ys);

/// Finds where edges of a polygon cross a segment, as polygonIntersect2D() does with `poly` for A
/// and the segment for the only edge of B.
/// @param p0  where the segment starts
/// @param p1  where it ends
/// @param poly  the vertices, or null
/// @param n  vertices
/// @param xs  receives the x of every crossing, or null
/// @param ys  receives the y of every crossing, or null
/// @return whether there is a crossing; false for a null `poly` or `n` below 1
bool lineSegmentPolygonIntersect(double* p0, double* p1, double* poly, int n, std::list<double>* xs,
                                 std::list<double>* ys);

/// Scales a polygon in place about the mean of its vertices (not its centre of area).
/// @param poly  the vertices; null for none
/// @param n  vertices; below 1 for none
/// @param scale  the factor of every vertex's distance from the mean
void scalePolygon2D(double* poly, int n, double scale);

/// Tells whether a point lies inside a polygon by the even-odd rule: whether an odd number of edges
/// cross the ray from the point towards -x. An edge has its upper end but not its lower one, level
/// edges never count, and points on an edge count as left of it: of the unit square the left and
/// the bottom side are outside, the right and the top side inside.
/// @param poly  the vertices, or null
/// @param n  vertices
/// @param p  the point, or null
/// @return false also for a null pointer or `n` below 1
bool pointInPolygon2DCrossingNumber(double* poly, int n, double* p);

/// Tells whether a polygon winds around a point, by the signs of isLeft2DLineDouble() from each
/// vertex to the one before it. Ends, level edges and points on an edge count as for the crossing
/// number, but an edge's side is told by the turn value instead of by where it meets the ray.
/// @param poly  the vertices
/// @param n  vertices
/// @param p  the point
/// @return whether the winding number is not 0; false for `n` below 1
bool pointInPolygon2DWindingNumber(double* poly, int n, double* p);

/// Tells whether a point lies inside a polygon by the rule of the caller's choice.
/// @param poly  the vertices
/// @param n  vertices
/// @param p  the point
/// @param method  which of pointInPolygon2DCrossingNumber() and pointInPolygon2DWindingNumber() to
/// call
/// @return its answer
bool pointInPolygon2D(double* poly, int n, double* p, POINT_IN_POLYGON_METHOD method);

/// Tells which of two polygons has all its vertices inside the other one, by
/// pointInPolygon2DWindingNumber(). Edges are not tested against each other. A polygon without
/// vertices lies inside any polygon that has some.
/// @param polyA  the vertices of A
/// @param nA  vertices of A
/// @param polyB  the vertices of B
/// @param nB  vertices of B
/// @return 1 for A only, 2 for B only, 0 for neither or both
int polygonCompletelyInside2D(double* polyA, int nA, double* polyB, int nB);

/// Tells whether both ends of a segment lie inside a hull by pointInPolygon2DWindingNumber(). For
/// the whole segment this is exact only if the hull is convex.
/// @param p0  one end
/// @param p1  the other end, looked at only if `p0` lies inside
/// @param hull  the vertices
/// @param n  vertices
/// @return whether both do
bool lineSegmentInsideConvexHull(double* p0, double* p1, double* hull, int n);

/// Builds the convex hull of integer points by Andrew's monotone chain.
///
/// The hull runs counter-clockwise from the first point and ends with that point again; points
/// between two corners in line are left out. If the only leftmost or the only rightmost point is
/// given more than once, the hull holds it once more. If all x are equal, it consists of the first
/// point and the last point, and of the last point once more if their y differ.
///
/// Turns are told by isLeft2DLine(): right as long as width times height of the points' bounding
/// box is below 2^31, as with coordinates from 0 to 46340. Beyond that turn values wrap around and
/// the result need not be a hull; what does not fit into n + 1 points is then cut off.
/// @param points  must be sorted by increasing x and, for equal x, by increasing y
/// @param n  points
/// @param hull  must have room for n + 1 points
/// @return the number of points written; 0 for `n` below 1
int chainHull_2D(int* points, int n, int* hull);
