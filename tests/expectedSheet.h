#pragma once

#include <string>

/// The sheet of an order of three copies for Ann B. Carter, a line of it on each line, with those lines as her address.
inline std::string expectedSheet(const std::string& address) {
    return R"(                       ***** ORDER FORM *****

  Name:       Ann B. Carter
  Address:    )" +
           address + R"(
  Email:      ann@example.org

  3 Copies @ US $12 each:        36
  Shipping Charge:                4

  Total:                        $40

  Make check payable to Tavin Orlec.

  Allow up to two weeks for delivery.

  Mail To:    Tavin Orlec
              417 Willow Court
              Millbrook Falls, OH 43999
              USA

  Questions/Comment to velmora@example.com

                           THANK YOU!!!
)";
}
