# Billing documents of this desk and of another; one advance payment that the accounts have voided.
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv) VALUES ('01', 'F01', '1', 10.00)
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv) VALUES ('02', 'B01', '1', 3.60)
INSERT INTO VENTA01 (TipoDoc, cSerieDoc, NroDoc, igv) VALUES ('01', 'F02', '1', 99.00)
INSERT INTO PAGOS (cSerieDocPago, NroDocPago, FechaAnulacion) VALUES ('PA1', '000010', '2026-11-24')
INSERT INTO PAGOS (cSerieDocPago, NroDocPago) VALUES ('PA1', '000009')
