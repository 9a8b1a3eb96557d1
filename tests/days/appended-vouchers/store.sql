INSERT INTO Options (NextVoucherNo, DeptNo, CreditToOrder, GrossPrices, StockNo, SalesAccount,
    DefaultVATCode)
VALUES (88, 2, NULL, 1, NULL, 3000, 3);

INSERT INTO Tax (VatCode, Rate) VALUES (3, 25);
