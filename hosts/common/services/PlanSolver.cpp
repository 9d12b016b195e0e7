#include "hosts/common/services/PlanSolver.h"

#include <Eigen/Dense>

namespace hosts {

bool solvePlan(ocuva::Long rows, const ocuva::Double* matrix, const ocuva::Double* rightSide,
               ocuva::Double* solution) {
    if (rows != 3 || !matrix || !rightSide || !solution)
        return false;
    using RowMajor = Eigen::Matrix<double, 3, 3, Eigen::RowMajor>;
    Eigen::Matrix3d scaled = Eigen::Map<const RowMajor>(matrix);
    const Eigen::Vector3d right = Eigen::Map<const Eigen::Vector3d>(rightSide);
    const Eigen::Vector3d columnScale = scaled.cwiseAbs().colwise().maxCoeff();
    if (!scaled.allFinite() || !right.allFinite() || columnScale.minCoeff() <= 0.0)
        return false;

    // Coordinates of 25000 are next to a column of ones; unscaled, the ones would look like noise.
    scaled = scaled * columnScale.cwiseInverse().asDiagonal();
    Eigen::ColPivHouseholderQR<Eigen::Matrix3d> decomposition(scaled);
    decomposition.setThreshold(planRankThreshold);
    if (decomposition.rank() < 3)
        return false;
    const Eigen::Vector3d result = decomposition.solve(right).cwiseQuotient(columnScale);
    if (!result.allFinite())
        return false;
    Eigen::Map<Eigen::Vector3d>(solution, 3) = result;
    return true;
}

} // namespace hosts
