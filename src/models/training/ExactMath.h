#pragma once

/// The exponential and the logarithm of the standard library differ in their last bits from one
/// system to the next, which training would blow up into other weights. These use nothing but the
/// four operations, whose results are laid down.
namespace brindlet::training {

/// e to the power of x; 0 below -700 and clamped above 700. Good to about 1e-12.
double exactExp(double x);

/// The natural logarithm of a number above 0. Good to about 1e-12.
double exactLog(double x);

}  // namespace brindlet::training
